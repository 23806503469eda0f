#include "language/language.h"

#include <QGuiApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include <algorithm>
#include <memory>
#include <utility>

/// Outside any namespace, as the macro asks for.
static void initCatalogues()
{
    Q_INIT_RESOURCE(translations);
}

namespace sonavo {
namespace {

QLocale english()
{
    return {QLocale::English, QLocale::UnitedStates};
}

/// One of languages(); empty when there is none for the locale.
QString languageOf(const QLocale &locale)
{
    const QStringList known = languages();
    const auto language = std::find_if(known.begin(), known.end(), [&locale](const QString &code) {
        const QLocale ours(code);
        return ours.language() == locale.language() && ours.script() == locale.script();
    });
    return language == known.end() ? QString() : *language;
}

bool load(QTranslator &translator, const QString &language)
{
    initCatalogues();
    return translator.load(QStringLiteral(":/translations/sonavo_") + language);
}

/// The application owns what it takes.
void install(std::unique_ptr<QTranslator> translator)
{
    translator->setParent(QCoreApplication::instance());
    QCoreApplication::installTranslator(translator.release());
}

} // namespace

QStringList languages()
{
    return {QStringLiteral("en"), QStringLiteral("ar"), QStringLiteral("de"), QStringLiteral("es"),
            QStringLiteral("fr"), QStringLiteral("ja"), QStringLiteral("ru"), QStringLiteral("zh_CN")};
}

QLocale bestLocale(const QStringList &wanted)
{
    for (const QString &code : wanted) {
        const QLocale locale(code);
        if (locale.language() != QLocale::C && !languageOf(locale).isEmpty())
            return locale.language() == QLocale::English ? english() : locale;
    }
    return english();
}

void useLanguage(const QLocale &locale)
{
    qDeleteAll(
        QCoreApplication::instance()->findChildren<QTranslator *>(QString(), Qt::FindDirectChildrenOnly));
    const bool isEnglish = locale.language() == QLocale::English;
    QLocale::setDefault(isEnglish ? english() : locale);
    const QString language = languageOf(locale);
    if (auto texts = std::make_unique<QTranslator>(); load(*texts, language))
        install(std::move(texts));
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (auto texts = std::make_unique<QTranslator>();
        !isEnglish && texts->load(QStringLiteral("qtbase_") + language, folder))
        install(std::move(texts));
    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        QGuiApplication::setLayoutDirection(locale.textDirection());
}

void useSystemLanguage()
{
    useLanguage(bestLocale(QLocale::system().uiLanguages()));
}

void useEnglish()
{
    useLanguage(english());
}

QString systemLanguageText(const char *context, const char *text)
{
    QTranslator translator;
    const QString translated = load(translator, languageOf(bestLocale(QLocale::system().uiLanguages())))
                                   ? translator.translate(context, text)
                                   : QString();
    return translated.isEmpty() ? QString::fromUtf8(text) : translated;
}

} // namespace sonavo
