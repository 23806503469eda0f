#include "app/utf8_locale.h"

#include <QByteArrayList>
#include <QtGlobal>

#include <clocale>
#include <cstring>
#include <langinfo.h>

namespace sonavo {

namespace {

/// What the environment says about the language of messages, as in "de_DE"; see POSIX, 8.2.
QByteArray wantedLanguage()
{
    for (const char *variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const QByteArray value = qgetenv(variable);
        if (value.isEmpty())
            continue;
        const QByteArray name = value.split('@').constFirst().split('.').constFirst();
        return name == "C" || name == "POSIX" ? QByteArray() : name;
    }
    return {};
}

} // namespace

void useUtf8Locale()
{
    std::setlocale(LC_ALL, "");
    if (std::strcmp(::nl_langinfo(CODESET), "UTF-8") != 0) {
        // The language does not depend on what the C library knows of it.
        if (const QByteArray language = wantedLanguage();
            !language.isEmpty() && qEnvironmentVariableIsEmpty("LANGUAGE"))
            qputenv("LANGUAGE", language);
        qputenv("LC_ALL", "C.UTF-8");
        std::setlocale(LC_ALL, "C.UTF-8");
    }
}

} // namespace sonavo
