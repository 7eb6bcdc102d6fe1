#pragma once

#include "desktop/controls.h"

#include <string>
#include <vector>

namespace chromalog::test {

/// A control that remembers whether it is enabled, hidden and dimmed, and what it says of itself.
template <typename Base> class Headless : public Base {
  public:
    std::string help;
    bool dimmed = false;
    std::vector<std::function<MenuItems()>> menuItems; ///< of its context menu
    void addMenuItems(std::function<MenuItems()> items) override { menuItems.push_back(std::move(items)); }
    void setHelp(std::string_view text) override { help = text; }
    void setDimmed(bool on) override { dimmed = on; }
    void setEnabled(bool enabled) override { enabled_ = enabled; }
    bool enabled() const { return enabled_; }
    void setHidden(bool hidden) override { hidden_ = hidden; }
    bool hidden() const { return hidden_; }

  private:
    bool enabled_ = true;
    bool hidden_ = false;
};

class HeadlessTextField : public Headless<TextField> {
  public:
    void setText(std::string_view text) override {
        pending_ = text;
        if (!editing_) shown_ = pending_;
    }
    std::string text() const override { return shown_; }
    void whenEdited(std::function<void()> f) override { onEdit = std::move(f); }
    void whenEditingEnds(std::function<void()> f) override { onEndEditing = std::move(f); }
    void whenReturnPressed(std::function<void()> f) override { onReturn = std::move(f); }
    void setFault(std::string_view why) override { fault = why; }
    void whenStepped(std::function<void(int)> f) override { onStep = std::move(f); }
    std::function<void()> onEdit, onEndEditing, onReturn;
    std::function<void(int)> onStep;
    std::string fault;

    /// What a person does: selects all and types, one keystroke at a time.
    void type(const std::string& text) {
        shown_.clear();
        editing_ = true;
        if (text.empty()) edited();
        for (char c : text) {
            shown_ += c;
            edited();
        }
    }
    void endEditing() {
        editing_ = false;
        shown_ = pending_;
        if (onEndEditing) onEndEditing();
    }

  private:
    void edited() {
        pending_ = shown_;
        if (onEdit) onEdit();
    }
    std::string shown_, pending_;
    bool editing_ = false;
};

class HeadlessButton : public Headless<Button> {
  public:
    Colour background;
    void setTitle(std::string_view title) override { title_ = title; }
    std::string title() const { return title_; }
    std::function<void()> onShow; ///< where set, after it was given a background
    void setBackground(const Colour& c) override {
        background = c;
        if (onShow) onShow();
    }
    void setState(int state) override { state_ = state; }
    int state() const override { return state_; }
    void whenMenuOpens(std::function<MenuItems()> items) override { menu = std::move(items); }
    std::function<MenuItems()> menu;

  private:
    std::string title_;
    int state_ = 0;
};

class HeadlessColorWell : public Headless<ColorWell> {
  public:
    std::function<void()> onShow; ///< where set, after it was given a colour
    void setColor(const Colour& c) override {
        color_ = c;
        if (onShow) onShow();
    }
    Colour color() const override { return color_; }
    void whenDropped(std::function<void(const DragInfo&)> f) override { onDrop = std::move(f); }
    std::function<void(const DragInfo&)> onDrop;
    /// What a drop does: the well takes the colour, then says so; nothing where nobody is told.
    void drop(const Colour& c, const DragSource* source = nullptr) {
        if (!onDrop) return;
        color_ = c;
        DragInfo info;
        info.source = source;
        info.pasteboard.colourType = true;
        info.pasteboard.colour = c;
        onDrop(info);
    }

  private:
    Colour color_;
};

class HeadlessLevelIndicator : public Headless<LevelIndicator> {
  public:
    void setValue(double v) override { value_ = v; }
    double value() const { return value_; }

  private:
    double value_ = 0;
};

class HeadlessSlider : public Headless<Slider> {
  public:
    void setValue(double v) { value_ = v; }
    double value() const override { return value_; }

  private:
    double value_ = 50;
};

class HeadlessStepper : public Headless<Stepper> {
  public:
    double minimum = 0, maximum = 0, increment = 1, current = 0;
    bool wraps = false;
    void configure(double lowest, double highest, double step, double value, bool wrap) override {
        minimum = lowest, maximum = highest, increment = step, current = value, wraps = wrap;
    }
    double value() const override { return current; }
};

class HeadlessTextView : public Headless<TextView> {
  public:
    void setText(std::string_view text) override { text_ = text; }
    std::string text() const { return text_; }

  private:
    std::string text_;
};

class HeadlessScrollView : public Headless<ScrollView> {
  public:
    Point scrolledTo;
    int redisplays = 0;
    void setVerticalScroller(double v) override { scroller_ = v; }
    double verticalScroller() const override { return scroller_; }
    void scrollToPoint(Point p) override { scrolledTo = p; }
    void setNeedsDisplay() override { ++redisplays; }

  private:
    double scroller_ = 0;
};

class HeadlessRadioMatrix : public Headless<RadioMatrix> {
  public:
    std::vector<std::string> titles{"Small", "Middle", "Large"};
    void selectRow(int row) override { row_ = row; }
    int selectedRow() const override { return row_; }
    std::string selectedTitle() const override {
        return row_ >= 0 && row_ < static_cast<int>(titles.size()) ? titles[row_] : "";
    }

  private:
    int row_ = 0;
};

class HeadlessRowList : public Headless<RowList> {
  public:
    std::vector<std::string> rows;
    int selected = -1;
    void setRows(const std::vector<std::string>& r) override {
        rows = r;
        selected = rows.empty() ? -1 : 0;
    }
    int selectedRow() const override { return selected; }
};

class HeadlessMenu : public Menu {
  public:
    int popUps = 0;
    std::vector<std::function<MenuItems()>> more;
    void addMenuItems(std::function<MenuItems()> items) override { more.push_back(std::move(items)); }
    void popUp(const View&, Point) override { ++popUps; }
};

class HeadlessWindow : public Headless<Window> {
  public:
    Window* parent = nullptr;
    int madeKey = 0;
    std::function<void()> onClose;
    void whenClosed(std::function<void()> f) override { onClose = std::move(f); }
    bool connected() const override { return true; }
    bool visible() const override { return visible_; }
    void makeKeyAndOrderFront() override { visible_ = true, ++madeKey; }
    void orderOut() override { visible_ = false; }
    void attachAsChildOf(Window& w) override { parent = &w; }

  private:
    bool visible_ = false;
};

} // namespace chromalog::test
