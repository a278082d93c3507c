#include "maps/BspTitle.h"

namespace bsp {
namespace {

std::uint32_t le32(std::string_view bytes, std::size_t at)
{
    std::uint32_t v = 0;
    for (std::size_t i = 0; i < 4; ++i)
        v |= std::uint32_t(static_cast<unsigned char>(bytes[at + i])) << (8 * i);
    return v;
}

bool sameText(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; };
        if (lower(a[i]) != lower(b[i]))
            return false;
    }
    return true;
}

struct Token {
    std::string_view text;
    bool quoted = false;
    // A brace only opens or closes an entity where it stands bare; "}" in
    // quotes is an ordinary value.
    bool is(char brace) const { return !quoted && text.size() == 1 && text[0] == brace; }
};

// The game's own tokens: blanks and control characters part them, "//"
// comments run to the line's end, a quoted text runs to the next quote and
// knows no escapes, anything else is a word up to the next blank.
class Tokens {
public:
    explicit Tokens(std::string_view text) : s_(text) {}

    // False at the end of the text, and on a quote left open, which is damage.
    bool next(Token& t)
    {
        for (;;) {
            while (i_ < s_.size() && static_cast<unsigned char>(s_[i_]) <= ' ')
                ++i_;
            if (s_.substr(i_, 2) != "//")
                break;
            const std::size_t end = s_.find('\n', i_);
            i_ = end == std::string_view::npos ? s_.size() : end;
        }
        if (i_ >= s_.size())
            return false;
        if (s_[i_] == '"') {
            const std::size_t close = s_.find('"', i_ + 1);
            if (close == std::string_view::npos)
                return false;
            t = {s_.substr(i_ + 1, close - i_ - 1), true};
            i_ = close + 1;
            return true;
        }
        const std::size_t start = i_;
        while (i_ < s_.size() && static_cast<unsigned char>(s_[i_]) > ' ')
            ++i_;
        t = {s_.substr(start, i_ - start), false};
        return true;
    }

private:
    std::string_view s_;
    std::size_t i_ = 0;
};

} // namespace

std::optional<Lump> entityLump(std::string_view header, std::uint64_t mapSize)
{
    if (header.size() < kEntityHeaderBytes || header.substr(0, 4) != "IBSP")
        return std::nullopt;
    const Lump lump{le32(header, 8), le32(header, 12)};
    // Negative numbers in the file read as huge ones here and fail the same tests.
    if (lump.length > kMaxEntityBytes || std::uint64_t(lump.offset) + lump.length > mapSize)
        return std::nullopt;
    return lump;
}

std::optional<std::string> worldspawnMessage(std::string_view entities)
{
    entities = entities.substr(0, entities.find('\0'));
    Tokens tokens(entities);
    Token open;
    while (tokens.next(open)) {
        if (!open.is('{'))
            return std::nullopt;
        bool world = false;
        std::optional<std::string_view> message;
        for (;;) {
            Token key, value;
            if (!tokens.next(key) || key.is('{'))
                return std::nullopt;
            if (key.is('}'))
                break;
            if (!tokens.next(value) || value.is('{') || value.is('}'))
                return std::nullopt;
            if (sameText(key.text, "classname"))
                world = sameText(value.text, "worldspawn");
            else if (sameText(key.text, "message"))
                message = value.text;
        }
        if (world) {
            if (!message || message->empty())
                return std::nullopt;
            return std::string(*message);
        }
    }
    return std::nullopt;
}

std::optional<std::string> mapTitle(std::string_view map)
{
    const std::optional<Lump> lump = entityLump(map, map.size());
    if (!lump)
        return std::nullopt;
    return worldspawnMessage(map.substr(lump->offset, lump->length));
}

} // namespace bsp
