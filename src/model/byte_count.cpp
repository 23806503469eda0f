#include "model/byte_count.h"

#include "model/local_digits.h"
#include "model/translate.h"

#include <array>

namespace sonavo {
namespace {

struct Unit
{
    /// With %1 for the number.
    const char *text;
    quint64 bytes;
    /// Most digits after the decimal point.
    int decimals;
};

constexpr std::array UNITS{
    Unit{QT_TRANSLATE_NOOP("ByteCount", "%1 KB"), 1'000, 0},
    Unit{QT_TRANSLATE_NOOP("ByteCount", "%1 MB"), 1'000'000, 1},
    Unit{QT_TRANSLATE_NOOP("ByteCount", "%1 GB"), 1'000'000'000, 2},
    Unit{QT_TRANSLATE_NOOP("ByteCount", "%1 TB"), 1'000'000'000'000, 2},
    Unit{QT_TRANSLATE_NOOP("ByteCount", "%1 PB"), 1'000'000'000'000'000, 2},
    Unit{QT_TRANSLATE_NOOP("ByteCount", "%1 EB"), 1'000'000'000'000'000'000, 2},
};

/// @param scaled the value in the last decimal of the unit: 843 for 84.3 MB
QString formattedInUnit(const QString &sign, quint64 scaled, const Unit &unit)
{
    QString digits = QString::number(scaled);
    if (unit.decimals > 0) {
        digits = digits.rightJustified(unit.decimals + 1, u'0');
        digits.insert(digits.size() - unit.decimals, u'.');
        while (digits.endsWith(u'0'))
            digits.chop(1);
        if (digits.endsWith(u'.'))
            digits.chop(1);
    }
    return translate("ByteCount", unit.text).arg(sign + withLocalDigits(digits));
}

QString bytesText(qint64 count)
{
    return translate("ByteCount", "%n bytes", "2 to 999", count);
}

} // namespace

QString formattedByteCount(qint64 bytes)
{
    if (bytes == 0)
        return translate("ByteCount", "Zero KB");

    const QString sign = bytes < 0 ? QStringLiteral("-") : QString();
    const quint64 magnitude = bytes < 0 ? 0 - static_cast<quint64>(bytes) : static_cast<quint64>(bytes);
    if (magnitude == 1)
        return sign + translate("ByteCount", "1 byte");
    if (magnitude < UNITS.front().bytes)
        return sign + bytesText(static_cast<qint64>(magnitude));

    for (const Unit &unit : UNITS) {
        quint64 lastDecimal = unit.bytes;
        quint64 nextUnit = 1000;
        for (int i = 0; i < unit.decimals; ++i) {
            lastDecimal /= 10;
            nextUnit *= 10;
        }
        // Integers, because a double does not represent every byte count exactly.
        const quint64 scaled = magnitude / lastDecimal + (magnitude % lastDecimal >= lastDecimal / 2 ? 1 : 0);
        if (scaled < nextUnit || unit.bytes == UNITS.back().bytes)
            return formattedInUnit(sign, scaled, unit);
    }
    Q_UNREACHABLE();
}

} // namespace sonavo
