#pragma once
// chat.txt, the mod's file of bot sayings: a comment block, then eight
// sections, each a marker line followed by one saying a line. Plain
// functions over bytes, so that every rule can be tried with a string.
#include <QByteArray>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>

namespace chat {

inline constexpr int kSectionCount = 8;

// The marker lines in the order the file and the editor's tabs keep.
const std::array<QByteArray, kSectionCount>& sectionMarkers();

struct ChatSections {
    std::array<QStringList, kSectionCount> sayings;
    bool operator==(const ChatSections&) const = default;
};

// Reads the sayings of each section; nothing when a marker is missing,
// since the mod would then read the wrong lines. Each section is looked for
// from the top of the file, and it ends at a comment, a line that begins with
// a blank, an empty line, another marker or the end; lines that begin with a
// quotation mark are passed over. CR LF, LF and CR all end a line, so a file
// saved by a Unix editor still opens (and is written back with CR LF).
std::optional<ChatSections> readChat(const QByteArray& bytes);

// The whole file: the header (lines without their line ends), then each
// marker and its sayings, every line ended by CR LF, in 8-bit text.
QByteArray writeChat(const QString& header, const ChatSections& sections);

// The header as the reader of the "Information" tab wants it: each line
// without its comment sign and the blank behind it.
QString explanationOf(const QString& header);

} // namespace chat
