#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace sonavo {

/// A view of a normalised text (see normalizeAllScripts()) that takes a byte a character where all of them
/// are ASCII, and otherwise a code point. The same text can be kept in both ways.
class PackedText
{
public:
    PackedText(std::string_view ascii)
        : m_begin(ascii.data())
        , m_size(ascii.size())
    {}
    PackedText(std::u32string_view text)
        : m_begin(text.data())
        , m_size(text.size())
        , m_isWide(true)
    {}

    /// Characters.
    [[nodiscard]] std::size_t size() const { return m_size; }

    /// Calls `visit` with the text, as a std::string_view or a std::u32string_view.
    template <typename Visit>
    decltype(auto) visit(Visit visit) const
    {
        return m_isWide ? visit(wide()) : visit(narrow());
    }

    /// The text as code points.
    /// @param memory holds them where the text does not; overwritten
    [[nodiscard]] std::u32string_view widened(std::u32string &memory) const
    {
        if (m_isWide)
            return wide();
        memory.assign(narrow().begin(), narrow().end());
        return memory;
    }

    /// Calls `visit` with two texts that are kept in the same way.
    template <typename Visit>
    friend decltype(auto) visitBoth(const PackedText &a, const PackedText &b, Visit visit)
    {
        if (!a.m_isWide && !b.m_isWide)
            return visit(a.narrow(), b.narrow());
        std::u32string memory;
        if (a.m_isWide)
            return visit(a.wide(), b.widened(memory));
        return visit(a.widened(memory), b.wide());
    }

    friend bool operator==(const PackedText &a, const PackedText &b)
    {
        return a.m_size == b.m_size && visitBoth(a, b, [](auto left, auto right) { return left == right; });
    }

private:
    [[nodiscard]] std::string_view narrow() const { return {static_cast<const char *>(m_begin), m_size}; }
    [[nodiscard]] std::u32string_view wide() const
    {
        return {static_cast<const char32_t *>(m_begin), m_size};
    }

    const void *m_begin;
    std::size_t m_size;
    bool m_isWide = false;
};

} // namespace sonavo
