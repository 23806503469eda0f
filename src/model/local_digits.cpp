#include "model/local_digits.h"

#include <QLocale>

namespace sonavo {

QString withLocalDigits(QString number)
{
    const QLocale locale;
    const QString zero = locale.zeroDigit();
    if (zero.size() == 1 && zero != QStringLiteral("0")) {
        for (QChar &character : number) {
            if (character >= u'0' && character <= u'9')
                character = QChar(zero.front().unicode() + (character.unicode() - u'0'));
        }
    }
    return number.replace(u'.', locale.decimalPoint());
}

} // namespace sonavo
