#include "model/color.h"

namespace sonavo {
namespace {

QStringView trimmedToAlphanumeric(QStringView text)
{
    while (!text.isEmpty() && !text.front().isLetterOrNumber())
        text = text.sliced(1);
    while (!text.isEmpty() && !text.back().isLetterOrNumber())
        text.chop(1);
    return text;
}

constexpr Color OPAQUE_BLACK{};

} // namespace

Color colorFromHex(QStringView text)
{
    const QStringView digits = trimmedToAlphanumeric(text);
    bool isNumber = false;
    const quint32 value = digits.toUInt(&isNumber, 16);
    if (!isNumber)
        return OPAQUE_BLACK;

    const auto nibble = [value](int position) { return ((value >> (4 * position)) & 0xF) * 17 / 255.0; };
    const auto byte = [value](int position) { return ((value >> (8 * position)) & 0xFF) / 255.0; };
    switch (digits.size()) {
    case 3:
        return {nibble(2), nibble(1), nibble(0), 1.0};
    case 6:
        return {byte(2), byte(1), byte(0), 1.0};
    case 8:
        return {byte(2), byte(1), byte(0), byte(3)};
    default:
        return OPAQUE_BLACK;
    }
}

} // namespace sonavo
