#pragma once

#include "desktop/desktop.h"
#include "pictures/picture_view.h"
#include "pictures/picture_work.h"
#include "pictures/taken_colours_view.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace chromalog {

/// What the panel asks of the dialog.
struct PicturePanelParts {
    Desktop& desktop;
    Window& dialog; ///< carries the panel
    std::function<void(const Colour&)> pick;
    std::function<void(int list, const std::vector<TakenColour>&)> add; ///< to list 1 or 2
};

/// A picture beside the dialog, to pick from and to take the colours of that stand for it.
class PicturePanel {
  public:
    explicit PicturePanel(PicturePanelParts);

    void show(); ///< asks for a file at once where there is no picture yet

  private:
    FormOwner owner();
    void start();
    void hide();
    void choose();
    void paste();
    void read(const PictureSource&);
    void hasRead(const std::string& name, const ReadPicture&, const Picture& overview);
    void take();
    void hasTaken(std::vector<TakenColour>);
    void cancel();
    void addTo(int list); ///< when there are colours
    void setEdge();
    void setOrder();
    void setCount(int count);
    void countTyped();
    void showState(); ///< in the note and by what can be pressed
    void watch();     ///< the progress
    void say(const std::string&);

    PicturePanelParts parts_;
    PictureView view_;
    TakenColoursView taken_;
    Outlet<Window> pictureWindow;
    Outlet<TextField> pictureNote, picturePlace, pictureCount;
    Outlet<Stepper> pictureCountStep;
    Outlet<RadioMatrix> pictureSquare, pictureOrder;
    Outlet<Button> cancelPicture, pictureToList1, pictureToList2;
    Outlet<ScrollView> takenScroller;
    std::string name_;        ///< of the picture that shows
    std::string reading_;     ///< of the one that is read; empty: none is
    std::string said_;        ///< about the latest picture; empty: nothing
    std::vector<int> wanted_; ///< lists that get the colours as soon as they are there
    int count_ = 0;
    std::unique_ptr<Timer> watch_;
    std::unique_ptr<Form> form_; ///< after the outlets and the views: its controls go first
    PictureWork work_;           ///< goes before all of these
};

} // namespace chromalog
