#pragma once

#include <QJsonObject>

#include <string>

namespace chromalog {

/// The dialog's own small settings, one JSON object in a file beside the stored lists. Its path below the
/// user's applications directory; the folders are made where they are missing. Empty where there is no such
/// directory.
std::string settingsPath(const std::string& applicationsDirectory);

/// Empty where there is no file, or none that can be read: its contents may be anything.
QJsonObject readSettings(const std::string& path);

/// Puts the values in the place of those of the same names; the file's other ones stay. Nothing is written
/// where nothing changes. False where it could not be written: what was there then stays whole.
bool changeSettings(const std::string& path, const QJsonObject& values);

} // namespace chromalog
