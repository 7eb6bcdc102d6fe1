#pragma once

#include "desktop/view.h"

#include <string>

namespace chromalog {

/// Text in one colour on the other, and the other way round beside it. A high one has a large line too.
class ContrastSample : public View {
  public:
    explicit ContrastSample(std::string name) : name_(std::move(name)) {}
    void show(const Colour& first, const Colour& second, std::string told);

    const char* className() const override { return "ContrastSample"; }
    bool isFlipped() const override { return true; }
    void drawRect(Canvas&) override;
    Accessible accessible() const override;

  private:
    const std::string name_;
    std::string told_;
    Colour first_, second_;
};

} // namespace chromalog
