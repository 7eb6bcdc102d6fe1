#pragma once

#include <cstddef>
#include <string_view>

namespace chromalog {

// Where things stand in the preferences file, in bytes from its beginning; what they are is the record's to
// say.
inline constexpr std::size_t kFileLists[] = {6, 1'520'006};          ///< 5,000 swatch records each
inline constexpr std::size_t kFileCounts[] = {3'040'006, 3'040'008}; ///< signed, 16 bits, little-endian
inline constexpr std::size_t kFileNames[] = {3'040'010, 3'040'266};  ///< length byte, up to 255 characters
inline constexpr std::size_t kFileNameSize = 256;
inline constexpr std::size_t kPreferencesSize = 3'040'536;

// Below the user's applications directory.
inline constexpr std::string_view kPreferencesFolder = "Quorvex/";
inline constexpr std::string_view kPreferencesName = "com_Quorvex_Chromalog_64_3-50.prf";

} // namespace chromalog
