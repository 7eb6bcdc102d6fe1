#pragma once

#include <memory>

struct StandaloneSuite;

namespace chromalog {

class ChromalogControler;
class QtDesktop;

/// Something that acts on the dialog for as long as it lives, at most as long as the desktop.
class Driven {
  public:
    virtual ~Driven() = default;
};

/// Attaches what the stand-alone host asks for to a dialog before its modal loop runs; null where it asks for
/// nothing.
using AttachDriven = std::unique_ptr<Driven> (*)(QtDesktop&, ChromalogControler&, const StandaloneSuite*);

} // namespace chromalog
