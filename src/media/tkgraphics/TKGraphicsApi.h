#pragma once
// The plain-C face of the picture component "TKGraphics.dll". The program
// looks these entry points up by name after loading the file, so the artwork
// can be rebuilt and swapped without rebuilding the program; nothing else of
// the library is meant to be reached from outside.
//
// A QImage crosses the boundary, so both sides must use the same Qt: the
// version number is that agreement, and the program refuses any other number.

class QImage;

#define TKGRAPHICS_ABI_VERSION 1

#if defined(__GNUC__)
#define TKGRAPHICS_EXPORT __attribute__((visibility("default")))
#else
#define TKGRAPHICS_EXPORT
#endif

extern "C" {

// TKGRAPHICS_ABI_VERSION of the library's build.
TKGRAPHICS_EXPORT int tkgraphics_abi_version();

// The picture keys ("showwelcome", "gorvanlogo", ...), ending in a null
// pointer. The list stays valid while the library is loaded.
TKGRAPHICS_EXPORT const char* const* tkgraphics_keys();

// Renders the picture of a key at the size it was drawn for into *out.
// False, leaving *out alone, for a key not in the list, or when the process
// has no QGuiApplication (text needs its font database).
TKGRAPHICS_EXPORT bool tkgraphics_picture(const char* key, QImage* out);

} // extern "C"

namespace tkgraphics {

using AbiVersionFn = int (*)();
using KeysFn = const char* const* (*)();
using PictureFn = bool (*)(const char*, QImage*);

inline constexpr char kAbiVersionSymbol[] = "tkgraphics_abi_version";
inline constexpr char kKeysSymbol[] = "tkgraphics_keys";
inline constexpr char kPictureSymbol[] = "tkgraphics_picture";

} // namespace tkgraphics
