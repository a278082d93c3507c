#pragma once
// The title of a Quake II map: the "message" of its worldspawn entity, the
// text the game shows when the level starts. Plain functions over the map's
// bytes, shared by the title library (mapname.dll) and the tests. They use
// the C++ library alone, so that the title library needs nothing beside it.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace bsp {

// The magic, the version and the first entry of the lump table, which is
// where every BSP of the Quake family keeps its entity text.
inline constexpr std::size_t kEntityHeaderBytes = 16;
// No map's entity text comes near this; a header that claims more is damage,
// and the title library mustn't be talked into reading a PAK whole.
inline constexpr std::uint32_t kMaxEntityBytes = 16u * 1024 * 1024;

struct Lump {
    std::uint32_t offset = 0; // counted from the map's first byte
    std::uint32_t length = 0;
};

// Where the entity text lies. Nothing when the bytes don't begin with
// "IBSP", are too short for the lump entry, or when the lump reaches past
// mapSize bytes (the map's bytes available from its first one) or is larger
// than kMaxEntityBytes. The version isn't checked: the entity lump is the
// first one in every version.
std::optional<Lump> entityLump(std::string_view header, std::uint64_t mapSize);

// The message of the first entity whose classname is "worldspawn", as its
// bytes stand. Keys and the class name are matched without regard to case,
// as hand-edited maps spell them either way, and a later key of an entity
// wins over an earlier one, as in the game. The text ends at its first NUL.
// Nothing when there is no such entity, when it has no message or an empty
// one, or when the text is damaged before the entity is closed.
std::optional<std::string> worldspawnMessage(std::string_view entities);

// Both, over a whole map in memory.
std::optional<std::string> mapTitle(std::string_view map);

} // namespace bsp
