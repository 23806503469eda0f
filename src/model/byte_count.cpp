#include "model/byte_count.h"

#include <array>

namespace sonavo {
namespace {

struct Unit
{
    const char *name;
    quint64 bytes;
    /// Most digits after the decimal point.
    int decimals;
};

constexpr std::array UNITS{
    Unit{"KB", 1'000, 0},
    Unit{"MB", 1'000'000, 1},
    Unit{"GB", 1'000'000'000, 2},
    Unit{"TB", 1'000'000'000'000, 2},
    Unit{"PB", 1'000'000'000'000'000, 2},
    Unit{"EB", 1'000'000'000'000'000'000, 2},
};

/// @param scaled the value in the last decimal of the unit: 843 for 84.3 MB
QString formattedInUnit(quint64 scaled, const Unit &unit)
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
    return digits + u' ' + QLatin1String(unit.name);
}

} // namespace

QString formattedByteCount(qint64 bytes)
{
    if (bytes == 0)
        return QStringLiteral("Zero KB");

    const QString sign = bytes < 0 ? QStringLiteral("-") : QString();
    const quint64 magnitude = bytes < 0 ? 0 - static_cast<quint64>(bytes) : static_cast<quint64>(bytes);
    if (magnitude == 1)
        return sign + QStringLiteral("1 byte");
    if (magnitude < UNITS.front().bytes)
        return sign + QString::number(magnitude) + QStringLiteral(" bytes");

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
            return sign + formattedInUnit(scaled, unit);
    }
    Q_UNREACHABLE();
}

} // namespace sonavo
