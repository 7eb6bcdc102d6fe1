#pragma once

#include <QJsonObject>

namespace chromalog::drive {

/// Every outlet of the loaded forms by its name, as a person sees it.
QJsonObject outletsState();

} // namespace chromalog::drive
