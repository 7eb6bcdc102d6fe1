#pragma once

#include "host/global_record.h"
#include "prefs/file_io.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace chromalog {

/// The preferences file is a raw image of the end of the global record: byte f of the file is byte f + 18 of
/// the record, which leaves the two pointers out. Its last two bytes lie past the record's end and are zero.
inline constexpr std::size_t kPreferencesOffset = 18;
inline constexpr std::size_t kPreferencesSize = 3'040'536;
inline constexpr std::string_view kPreferencesFolder = "Quorvex/";
inline constexpr std::string_view kPreferencesName = "com_Quorvex_Chromalog_64_3-50.prf";

/// The path of the preferences file below the user's applications directory; its folders are made where they
/// are missing. Empty where there is no such directory.
std::string applicationDataDirectory(std::string_view applicationsDirectory);

/// The record's bytes that the file holds: all of the file but its last two bytes.
std::span<const std::uint8_t> preferencesImage(const GlobalRecord&);

/// Lays a file of any length over the record: a shorter one changes the leading part alone, what is past the
/// record's end is dropped. Counts, lengths and flags are taken as they stand.
void applyPreferences(GlobalRecord&, std::span<const std::uint8_t> file);

/// False where there is no readable file; the record then keeps what it holds.
bool readPreferences(const std::string& path, GlobalRecord&);
bool writePreferences(const std::string& path, const GlobalRecord&, Flush);

/// Keeps a file that was not read as PATH.skipped before it is overwritten. A file without colours does not
/// replace an older copy: the lists that were skipped twice in a row are worth more.
void keepSkippedPreferences(const std::string& path);

} // namespace chromalog
