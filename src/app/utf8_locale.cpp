#include "app/utf8_locale.h"

#include <QByteArray>

#include <clocale>
#include <cstring>
#include <langinfo.h>

namespace sonavo {

void useUtf8Locale()
{
    std::setlocale(LC_ALL, "");
    if (std::strcmp(::nl_langinfo(CODESET), "UTF-8") != 0) {
        qputenv("LC_ALL", "C.UTF-8");
        std::setlocale(LC_ALL, "C.UTF-8");
    }
}

} // namespace sonavo
