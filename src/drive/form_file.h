#pragma once

#include "qt/form_reading.h"

namespace chromalog {

/// The widgets of an interface file, read as it is when this is called; null where it is missing or broken.
/// `problems` gets a line for that and for each class that nobody knows. What `makeOwn` throws is thrown.
std::unique_ptr<QWidget> readFormFile(const QString& path, MakeWidget makeOwn,
                                      std::vector<std::string>& problems);

} // namespace chromalog
