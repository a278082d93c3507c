// mapname.dll: the title of a map inside a PAK archive or in a loose BSP.
// Only the BSP's first 16 bytes and its entity text are read, never the rest
// of the archive, which can be hundreds of megabytes.
#include "maps/BspTitle.h"
#include "maps/mapname/MapNameApi.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

namespace {

struct CloseFile {
    void operator()(std::FILE* f) const { std::fclose(f); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

// Up to count bytes from offset; fewer where the file ends.
std::string readAt(std::FILE* f, std::uint64_t offset, std::size_t count)
{
    if (fseeko(f, off_t(offset), SEEK_SET) != 0)
        return {};
    std::string out(count, '\0');
    out.resize(std::fread(out.data(), 1, count, f));
    return out;
}

std::optional<std::string> titleAt(const char* path, std::uint32_t position)
{
    const File f(std::fopen(path, "rb"));
    if (!f)
        return std::nullopt;
    const std::string header = readAt(f.get(), position, bsp::kEntityHeaderBytes);
    if (header.size() < bsp::kEntityHeaderBytes || fseeko(f.get(), 0, SEEK_END) != 0)
        return std::nullopt;
    const off_t size = ftello(f.get());
    if (size < off_t(position))
        return std::nullopt;
    const std::optional<bsp::Lump> lump = bsp::entityLump(header, std::uint64_t(size) - position);
    if (!lump)
        return std::nullopt;
    const std::string entities = readAt(f.get(), std::uint64_t(position) + lump->offset, lump->length);
    if (entities.size() != lump->length)
        return std::nullopt;
    return bsp::worldspawnMessage(entities);
}

} // namespace

extern "C" __attribute__((visibility("default"))) std::int32_t _bspname(char* record, std::int32_t position)
{
    if (!record || position < 0)
        return -1;
    const std::string path(record, strnlen(record, mapname::kRecordSize));
    std::optional<std::string> title;
    try {
        title = titleAt(path.c_str(), std::uint32_t(position));
    } catch (...) { // out of memory: no title, and Torvik goes on
        return -1;
    }
    if (!title)
        return -1;
    const std::size_t length = std::min<std::size_t>(title->size(), mapname::kRecordSize - 1);
    std::memcpy(record, title->data(), length);
    record[length] = '\0';
    return std::int32_t(length);
}
