#pragma once

#include "desktop/view.h"

namespace chromalog {

/// Gives a view the geometry that it has on paper for as long as this lives, unknown to the widget that shows
/// it: the dialog behind a print panel goes on drawing itself.
class OnPaper {
  public:
    OnPaper(View& view, const Rect& frame, const Rect& bounds)
        : view_(view), host_(view.host()), frame_(view.frame()), bounds_(view.bounds()) {
        view_.setHost(nullptr);
        view_.setFrame(frame);
        view_.setBounds(bounds);
    }
    OnPaper(const OnPaper&) = delete;
    OnPaper& operator=(const OnPaper&) = delete;
    ~OnPaper() {
        view_.setFrame(frame_);
        view_.setBounds(bounds_);
        view_.setHost(host_);
    }

  private:
    View& view_;
    ViewHost* host_;
    Rect frame_, bounds_;
};

} // namespace chromalog
