#pragma once

#include "host/abi/standalone_suite.h"

#include <memory>

namespace chromalog {

class ChromalogControler;
class QtDesktop;

/// Something that acts on the dialog for as long as it lives, at most as long as the desktop.
class Driven {
  public:
    virtual ~Driven() = default;
};

/// Acts on the stand-alone host's options --drive, --screenshot, --accept and --cancel as soon as the dialog
/// is on the screen and painted. To be called before its modal loop runs. Null where none of them was given.
std::unique_ptr<Driven> attachDrive(QtDesktop&, ChromalogControler&, const StandaloneSuite*);

} // namespace chromalog
