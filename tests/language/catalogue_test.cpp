#include "language/language.h"

#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <gmock/gmock.h>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::IsEmpty;

const QString SOURCE_FOLDER = QStringLiteral(SONAVO_SOURCE_FOLDER);

struct Message
{
    QString source;
    /// Its plural forms, or one text.
    QStringList translations;
    bool isPlural = false;
    bool isFinished = true;
};

/// The messages of a catalogue by context, source and comment.
QMap<QString, Message> messagesOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    QMap<QString, Message> messages;
    QString context;
    QString comment;
    Message message;
    for (QXmlStreamReader xml(&file); !xml.atEnd();) {
        xml.readNext();
        if (xml.isEndElement() && xml.name() == u"message")
            messages.insert(context + u'|' + message.source + u'|' + comment, message);
        if (!xml.isStartElement())
            continue;
        if (xml.name() == u"message") {
            message = {};
            comment.clear();
            message.isPlural = xml.attributes().value(u"numerus"_s) == u"yes";
        } else if (xml.name() == u"name") {
            context = xml.readElementText();
        } else if (xml.name() == u"source") {
            message.source = xml.readElementText();
        } else if (xml.name() == u"comment") {
            comment = xml.readElementText();
        } else if (xml.name() == u"translation") {
            message.isFinished = !xml.attributes().hasAttribute(u"type"_s);
            if (!message.isPlural)
                message.translations.append(xml.readElementText());
        } else if (xml.name() == u"numerusform") {
            message.translations.append(xml.readElementText());
        }
    }
    return messages;
}

/// "%1" and "%n", sorted; whether numbers are written as the locale asks for is up to the translation.
QStringList placeholdersOf(const QString &text)
{
    static const QRegularExpression placeholder(u"%L?([0-9n])"_s);
    QStringList found;
    for (auto matches = placeholder.globalMatch(text); matches.hasNext();)
        found.append(matches.next().captured(1));
    found.sort();
    found.removeDuplicates();
    return found;
}

QString catalogueOf(const QString &language)
{
    return SOURCE_FOLDER + u"/translations/sonavo_%1.ts"_s.arg(language);
}

TEST(Catalogues, HaveEveryTextOfTheSourceAndNoOther)
{
    const QTemporaryDir folder;
    for (const QString &language : languages()) {
        const QString fresh = folder.filePath(language + u".ts"_s);
        QStringList arguments{
            u"-silent"_s, u"-source-language"_s, u"en"_s, SOURCE_FOLDER + u"/src"_s, u"-ts"_s, fresh};
        if (language == u"en")
            arguments.prepend(u"-pluralonly"_s);
        ASSERT_EQ(QProcess::execute(QStringLiteral(SONAVO_LUPDATE), arguments), 0);
        const auto expected = messagesOf(fresh);
        const auto messages = messagesOf(catalogueOf(language));
        EXPECT_GT(expected.size(), 20);
        EXPECT_EQ(messages.keys(), expected.keys())
            << language.toStdString() << ": build update_translations";
        for (auto it = expected.cbegin(); it != expected.cend(); ++it)
            EXPECT_EQ(messages.value(it.key()).isPlural, it->isPlural) << it.key().toStdString();
    }
}

TEST(Catalogues, TranslateEveryTextWithItsPlaceholdersInEveryPluralForm)
{
    const QMap<QString, qsizetype> pluralForms{{u"ar"_s, 6}, {u"ja"_s, 1}, {u"ru"_s, 3}, {u"zh_CN"_s, 1}};
    for (const QString &language : languages()) {
        for (const Message &message : messagesOf(catalogueOf(language))) {
            SCOPED_TRACE((language + u": "_s + message.source).toStdString());
            EXPECT_TRUE(message.isFinished);
            EXPECT_EQ(message.translations.size(), message.isPlural ? pluralForms.value(language, 2) : 1);
            for (qsizetype form = 0; form < message.translations.size(); ++form) {
                const QString &translation = message.translations[form];
                EXPECT_FALSE(translation.trimmed().isEmpty());
                QStringList placeholders = placeholdersOf(message.source);
                // Words say what is none, one or two.
                const bool isOneNumber = language == u"ar" && message.isPlural && form < 3;
                if (isOneNumber && !placeholdersOf(translation).contains(u"n"_s))
                    placeholders.removeAll(u"n"_s);
                EXPECT_EQ(placeholdersOf(translation), placeholders) << translation.toStdString();
            }
        }
    }
}

/// Literals in a view that a user reads and that no catalogue can have: whatever is shown or read aloud, and
/// whatever has several words.
QStringList untranslatedInView(QString source)
{
    static const QRegularExpression comment(u"^\\s*//.*$|\\s//\\s.*$"_s, QRegularExpression::MultilineOption);
    static const QRegularExpression translated(u"qsTr\\([^)]*\\)"_s);
    static const QRegularExpression literal(u"\"([^\"]*)\""_s);
    static const QRegularExpression words(u"[A-Za-z]{2}.* [a-z]"_s);
    static const QRegularExpression shown(
        u"\\b(text|title|toolTip|description|name|placeholderText|action|label): "_s);
    source.remove(comment).remove(translated);
    QStringList found;
    for (const QString &line : source.split(u'\n')) {
        for (auto matches = literal.globalMatch(line); matches.hasNext();) {
            const auto match = matches.next();
            const QString text = match.captured(1);
            const bool isShown = line.left(match.capturedStart()).contains(shown);
            static const QRegularExpression word(u"[A-Za-z]{2}"_s);
            if (text.contains(words) || (isShown && text.contains(word) && text != u"FLAC"))
                found.append(text);
        }
    }
    return found;
}

/// The same for C++, where only sentences can be told from other literals.
QStringList untranslatedInCode(const QString &source)
{
    static const QRegularExpression sentence(
        u"(QStringLiteral\\(\\s*|\\bu)\"[^\"]*[A-Za-z][a-z]+ [a-z]+[^\"]*\""_s);
    QStringList found;
    for (auto matches = sentence.globalMatch(source); matches.hasNext();)
        found.append(matches.next().captured());
    // The name of a file, which is the same in all languages.
    found.removeAll(u"QStringLiteral(\"Duplicate songs\""_s);
    return found;
}

TEST(Catalogues, MissNoTextThatUsersRead)
{
    EXPECT_EQ(untranslatedInView(u"Item {\n text: \"Stop\"\n}"_s).size(), 1);
    EXPECT_EQ(untranslatedInView(u"x ? qsTr(\"Stop it\") : \"Go on\""_s).size(), 1);
    EXPECT_EQ(untranslatedInCode(u"return QStringLiteral(\"%1 Files were moved\");"_s).size(), 1);
    qsizetype files = 0;
    // The others print for terminals and scripts, in English.
    for (const QString &module :
         {u"actions"_s, u"analysis"_s, u"desktop"_s, u"import"_s, u"session"_s, u"ui"_s}) {
        for (QDirIterator it(SOURCE_FOLDER + u"/src/"_s + module, {u"*.qml"_s, u"*.cpp"_s}, QDir::Files,
                             QDirIterator::Subdirectories);
             it.hasNext(); ++files) {
            QFile file(it.next());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            const QString source = QString::fromUtf8(file.readAll());
            EXPECT_THAT(file.fileName().endsWith(u".qml") ? untranslatedInView(source)
                                                          : untranslatedInCode(source),
                        IsEmpty())
                << file.fileName().toStdString();
        }
    }
    EXPECT_GT(files, 100);
}

} // namespace
} // namespace sonavo
