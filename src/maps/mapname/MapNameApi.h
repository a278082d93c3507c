#pragma once
// The title library, mapname.dll in the program folder: one plain C entry
// point, looked up by name when a map's information is shown. Torvik and the
// library both include this, and nothing else of each other.
#include <cstdint>

namespace mapname {

// The file name, as it stands in the program folder (found without regard to case).
inline constexpr char kLibraryFileName[] = "mapname.dll";

// The one entry point. The library's 32-bit Windows build decorated this name
// as "_bspname@8", the "@8" counting the bytes of its arguments; a shared
// library of this platform carries no such suffix.
inline constexpr char kEntryPoint[] = "_bspname";

// The record the entry point works on: 120 bytes, 8-bit text.
inline constexpr int kRecordSize = 120;

// record: on entry the path of the file holding the map (its bytes as the
// file system takes them) ended by a NUL; on return the title ended by a NUL,
// cut to 119 bytes. position: where the map's BSP data begins in that file,
// 0 for a loose map. The result is -1 when no title was found, in its low 16
// bits; the record is then left as it was.
using BspNameFunction = std::int32_t (*)(char* record, std::int32_t position);

} // namespace mapname
