#pragma once

#include "colour/working_colours.h"
#include "support/headless_controls.h"

#include <deque>
#include <map>
#include <string>
#include <vector>

namespace chromalog::test {

/// Working colours with a control on every outlet, at their defaults. They write down what the dialog would
/// follow, and find the place of an entered second colour as it does.
class HeadlessColours : public WorkingColours {
  public:
    explicit HeadlessColours(ColorServicesProc services = nullptr) : WorkingColours(services) {
        for (const OutletEntry& entry : table())
            if (auto* field = std::get_if<Outlet<TextField>*>(&entry.target))
                (*field)->connect(&fields_.emplace_back());
            else if (auto* button = std::get_if<Outlet<Button>*>(&entry.target))
                (*button)->connect(&buttons_.emplace_back());
            else
                connectWell(std::string(entry.name), *std::get<Outlet<ColorWell>*>(entry.target));
        observeControls();
        zeroInit();
        changed = [this](Cause cause) {
            causes.push_back(cause);
            if (cause == Cause::secondEntered) placeSecondColor();
        };
    }

    std::vector<Cause> causes;
    std::vector<std::string> shown; ///< the wells that were given a colour, in order
    std::map<std::string, HeadlessColorWell*> wells;

  private:
    void connectWell(const std::string& name, Outlet<ColorWell>& outlet) {
        HeadlessColorWell& well = wells_.emplace_back();
        well.onShow = [this, name] { shown.push_back(name); };
        outlet.connect(wells[name] = &well);
    }

    std::deque<HeadlessTextField> fields_;
    std::deque<HeadlessButton> buttons_;
    std::deque<HeadlessColorWell> wells_;
};

} // namespace chromalog::test
