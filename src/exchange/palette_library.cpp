#include "exchange/palette_library.h"

#include "base/translated.h"
#include "files/file_io.h"
#include "palettes/palette_format.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>

namespace chromalog {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostEntries = 300, kShownColours = 256;
constexpr std::size_t kLongest = 4 << 20; // bytes; a longer file is left out
constexpr std::size_t kLongestName = 80;  // bytes of a file's name

/// The folder's regular files by name; hidden ones are no palettes.
std::vector<fs::path> filesOf(const std::string& folder) {
    std::vector<fs::path> files;
    std::error_code failed;
    for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end;
         entry.increment(failed)) {
        std::error_code ignored;
        if (entry->is_regular_file(ignored) && !entry->path().filename().string().starts_with('.'))
            files.push_back(entry->path());
        if (files.size() >= kMostEntries) break;
    }
    std::ranges::sort(files);
    return files;
}

/// False where the file is no palette.
bool read(const std::string& path, LibraryEntry& entry) {
    const auto bytes = readDataFromFileAtURL(path, kLongest + 1);
    if (!bytes || bytes->size() > kLongest) return false;
    const auto format = formatOfContents(*bytes, path);
    if (!format) return false;
    try {
        entry.palette = rulesOf(*format).read(*bytes).palette;
    } catch (const PaletteError&) {
        return false;
    }
    entry.path = path;
    entry.count = entry.palette.colours.size();
    if (entry.count > kShownColours) entry.palette.colours.resize(kShownColours);
    return entry.count > 0;
}

/// A name that any file system takes.
std::string fileName(const std::string& title) {
    std::string name;
    for (const char c : title)
        name.push_back(static_cast<unsigned char>(c) < ' ' || c == '/' || c == '\\' || c == ':' ? '_' : c);
    while (name.starts_with('.'))
        name.erase(0, 1);
    while (name.size() > kLongestName ||
           (!name.empty() && (name.back() & 0xC0) == 0x80 && name.size() > kLongestName - 4))
        name.pop_back();
    return name.empty() ? "Palette" : name;
}

} // namespace

PaletteLibrary::PaletteLibrary(std::string own, std::vector<LibraryFolder> others)
    : folders_(std::move(others)) {
    folders_.insert(folders_.begin(), LibraryFolder{"", std::move(own)});
}

std::vector<LibraryEntry> PaletteLibrary::entries() const {
    std::vector<LibraryEntry> entries;
    for (const LibraryFolder& folder : folders_)
        for (const fs::path& file : filesOf(folder.path)) {
            LibraryEntry entry;
            if (entries.size() >= kMostEntries || !read(file, entry)) continue;
            entry.label = file.filename().string();
            if (!folder.label.empty()) entry.label += " (" + folder.label + ")";
            entries.push_back(std::move(entry));
        }
    return entries;
}

std::uint64_t PaletteLibrary::state() const {
    std::uint64_t state = 0;
    for (const LibraryFolder& folder : folders_)
        for (const fs::path& file : filesOf(folder.path)) {
            std::error_code ignored;
            const auto time = fs::last_write_time(file, ignored).time_since_epoch().count();
            state = state * 31 + std::hash<std::string>()(file.string()) + static_cast<std::uint64_t>(time);
        }
    return state;
}

std::string PaletteLibrary::keep(const Palette& palette) const {
    const fs::path folder = folders_.front().path;
    if (folder.empty()) throw PaletteError(translated("there is no folder to keep palettes in"));
    std::error_code failed;
    fs::create_directories(folder, failed);
    if (failed) throw PaletteError(translated("the library's folder cannot be made: %1", failed.message()));
    const std::string stem = fileName(palette.title);
    fs::path file = folder / (stem + ".aco");
    for (int number = 2; fs::exists(file, failed); ++number)
        file = folder / (stem + " " + std::to_string(number) + ".aco");
    if (!writeDataToFileAtURL(file, rulesOf(PaletteFormat::aco).write(palette)))
        throw PaletteError(translated("%1 was not written: %2", file.filename().string(), reasonOf(errno)));
    return file.filename().string();
}

std::vector<LibraryFolder> foldersOfOtherPrograms(const std::string& home) {
    const std::pair<const char*, std::string> known[] = {
        {"GIMP", home + "/.config/GIMP/2.10/palettes"},    {"GIMP", home + "/.config/GIMP/3.0/palettes"},
        {"Inkscape", home + "/.config/inkscape/palettes"}, {"Krita", home + "/.local/share/krita/palettes"},
        {"GIMP", "/usr/share/gimp/2.0/palettes"},          {"GIMP", "/usr/share/gimp/3.0/palettes"},
        {"Inkscape", "/usr/share/inkscape/palettes"},      {"Krita", "/usr/share/krita/palettes"}};
    std::vector<LibraryFolder> folders;
    for (const auto& [program, path] : known) {
        std::error_code ignored;
        if ((path.starts_with("/usr/") || !home.empty()) && fs::is_directory(path, ignored))
            folders.push_back({program, path});
    }
    return folders;
}

} // namespace chromalog
