#include "exchange/import_source.h"

#include "base/file_name.h"
#include "base/translated.h"
#include "files/file_io.h"
#include "palettes/palette_format.h"

#include <cerrno>

namespace chromalog {
namespace {

/// Adds a file's colours; the label of its kind.
std::string_view addFile(const std::string& path, ImportSource& source) {
    const auto fail = [&path](const std::string& why) {
        return PaletteError(translated("%1 could not be read: %2", fileNameOf(path), why));
    };
    const auto bytes = readDataFromFileAtURL(path, kLongestRead + 1);
    if (!bytes) throw fail(reasonOf(errno));
    if (bytes->size() > kLongestRead) throw fail(translated("it is too long for a palette"));
    const auto format = formatOfContents(*bytes, path);
    if (!format) throw fail(translated("it is no palette of a kind that is known here"));
    try {
        ReadPalette read = rulesOf(*format).read(*bytes);
        source.unread += read.unread;
        if (source.palette.title.empty()) source.palette.title = std::move(read.palette.title);
        for (PaletteColour& colour : read.palette.colours)
            addColour(source.palette, std::move(colour));
    } catch (const PaletteError& error) {
        throw fail(error.what());
    }
    return rulesOf(*format).label;
}

} // namespace

ImportSource readImportSource(const std::vector<std::string>& paths) {
    ImportSource source;
    std::string_view kind;
    for (const std::string& path : paths) {
        kind = addFile(path, source);
        if (source.name.empty()) source.name = fileNameOf(path);
    }
    source.description =
        paths.size() == 1 ? translated(kind) : translatedCount(paths.size(), "%1 file", "%1 files");
    source.description += ", " + translatedCount(source.palette.colours.size(), "%1 color", "%1 colors");
    return source;
}

} // namespace chromalog
