#pragma once

#include "desktop/view.h"

#include <functional>

namespace chromalog {

using GivePicture = std::function<void(const PictureSource&)>;

inline DragOperation pictureEntered(const DragInfo& info) {
    return info.pasteboard.picture ? DragOperation::copy : DragOperation::none;
}

/// False where the drag carries no picture, or has none any more.
inline bool pictureDropped(const DragInfo& info, const GivePicture& given) {
    const PictureSource source = info.pasteboard.picture ? info.pasteboard.picture() : PictureSource();
    if (source.read && given) given(source);
    return static_cast<bool>(source.read);
}

} // namespace chromalog
