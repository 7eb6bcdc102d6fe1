#pragma once

#include "prefs/preferences_layout.h"
#include "prefs/preferences_store.h"
#include "record/global_record.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace chromalog {

/// The preferences file is a raw image of the end of the global record: byte f of the file is byte f + 18 of
/// the record, which leaves the two pointers out. Its last two bytes lie past the record's end and are zero.
inline constexpr std::size_t kPreferencesOffset = 18;
inline constexpr std::size_t kPreferencesImage = sizeof(GlobalRecord) - kPreferencesOffset;
inline constexpr std::size_t kPreferencesZeros = kPreferencesSize - kPreferencesImage;

/// The path of the preferences file below the user's applications directory; its folders are made where they
/// are missing. Empty where there is no such directory.
std::string applicationDataDirectory(std::string_view applicationsDirectory);

/// The record's bytes that the file holds: all of the file but its last two bytes.
std::span<const std::uint8_t> preferencesImage(const GlobalRecord&);

/// Lays a file of any length over the record: a shorter one changes the leading part alone, what is past the
/// record's end is dropped. Counts, lengths and flags are taken as they stand.
void applyPreferences(GlobalRecord&, std::span<const std::uint8_t> file);

/// Lays the stored file over the record. False where errno says why: the record is as it was then.
bool readPreferences(GlobalRecord&, PreferencesStore&);

} // namespace chromalog
