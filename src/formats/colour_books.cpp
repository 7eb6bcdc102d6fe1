#include "formats/colour_books.h"

namespace chromalog {
namespace {

struct BookRow {
    std::int16_t space;
    BookChoice book;
};

/// The books that the space code alone decides on. 3062 and 3063 share one: kept.
constexpr BookRow kBooks[] = {
    {4, {"FOCOLTONE.acb"}},
    {5, {"TRUMATCH.acb"}},
    {6, {"TOYO 94 COLOR FINDER.acb"}},
    {11, {"DIC Color Guide.acb"}},
    {3000, {"ANPA Color.acb"}},
    {3022, {"PANTONE+ Metallic Coated.acb"}},
    {3032, {"TOYO COLOR FINDER.acb"}},
    {3060, {"PANTONE+ Solid Coated.acb"}},
    {3061, {"PANTONE+ Solid Uncoated.acb"}},
    {3062, {"PANTONE+ CMYK Coated.acb"}},
    {3063, {"PANTONE+ CMYK Coated.acb"}},
    {3064, {"PANTONE+ Color Bridge Coated.acb"}},
    {3065, {"PANTONE+ Color Bridge Uncoated.acb"}},
    // This one name is made into a URL before it is appended; with its spaces it forms none: kept.
    {3066, {"PANTONE+ Pastels & Neons Coated.acb", false}},
    {3067, {"PANTONE+ Pastels & Neons Uncoated.acb"}},
    {3068, {"PANTONE+ Premium Metallics Coated.acb"}},
};

constexpr std::int16_t kPantone = 3, kHks = 10;
constexpr BookChoice kPantoneCoated{"PANTONE solid coated.acb"},
    kPantoneUncoated{"PANTONE solid uncoated.acb"};

struct HksTest {
    std::uint8_t fifth; ///< 0: any
    std::uint8_t sixth;
    BookChoice book;
};

/// In this order; a later test that is true replaces an earlier one.
constexpr HksTest kHksTests[] = {
    {'E', 'P', {"HKS E Process.acb"}}, {0, 'E', {"HKS E.acb"}},           {'K', 'P', {"HKS K Process.acb"}},
    {0, 'K', {"HKS K.acb"}},           {'N', 'P', {"HKS N Process.acb"}}, {0, 'N', {"HKS N.acb"}},
    {'Z', 'P', {"HKS Z Process.acb"}}, {0, 'Z', {"HKS Z.acb"}},
};

const BookChoice* hksBook(const BookKey& key) {
    const BookChoice* book = nullptr;
    for (const HksTest& test : kHksTests)
        if ((test.fifth == 0 || key[4] == test.fifth) && key[5] == test.sixth) book = &test.book;
    return book;
}

struct FolderRow {
    std::int64_t major;
    std::string_view folder;
};

constexpr FolderRow kFolders[] = {
    {13, "/Adobe Photoshop CS6/Presets/Color Books"},
    {14, "/Adobe Photoshop CC/Presets/Color Books"},
    {15, "/Adobe Photoshop CC 2014/Presets/Color Books"},
    {16, "/Adobe Photoshop CC 2015/Presets/Color Books"},
};

} // namespace

bool isBookSpace(std::int16_t space) {
    if (space == kPantone || space == kHks) return true;
    for (const BookRow& row : kBooks)
        if (row.space == space) return true;
    return false;
}

const BookChoice* bookForSpace(std::int16_t space, const BookKey& key) {
    if (space == kPantone) return key[5] == 'U' ? &kPantoneUncoated : &kPantoneCoated;
    if (space == kHks) return hksBook(key);
    for (const BookRow& row : kBooks)
        if (row.space == space) return &row.book;
    return nullptr;
}

std::string pathOfBooks(std::int64_t version, std::string_view named, std::string_view applications) {
    const std::int64_t major = version / 65535; // not 65536: kept
    for (const FolderRow& row : kFolders)
        if (row.major == major)
            return named.empty() ? std::string(applications).append(row.folder) : std::string(named);
    return named.empty() ? std::string(applications) : std::string();
}

} // namespace chromalog
