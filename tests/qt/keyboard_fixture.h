#pragma once

#include "qt/dialog_fixture.h"

namespace chromalog::test {

/// The dialog on the screen, with the keyboard, and some swatches in either list.
class KeyboardTest : public WholeDialogTest {
  protected:
    void SetUp() override {
        makeDialog();
        fill(controler->panels().one, 5);
        fill(controler->panels().two, 3);
        window().show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    }

    QWidget& window() const { return *desktop.widget("chromalogWindow"); }
    template <typename T> T& find(const char* outlet) const {
        auto* found = qobject_cast<T*>(desktop.widget(outlet));
        if (!found) throw std::invalid_argument(outlet);
        return *found;
    }
    QWidget& widget(const char* outlet) const { return find<QWidget>(outlet); }

    /// By the whole way of a person's key: shortcuts first, then what has the focus.
    void strike(int key, Qt::KeyboardModifiers held = Qt::NoModifier) const {
        QTest::keyClick(window().windowHandle(), Qt::Key(key), held);
    }
    std::string focus() const {
        const QWidget* now = window().focusWidget();
        return now ? now->objectName().toStdString() : "nothing";
    }
    /// The first letters of a list's names.
    std::string letters(SwatchPanel& panel) const {
        std::string all;
        for (const FCOStruct& swatch : panel.view.shownRecords())
            all += static_cast<char>(swatch.Namen[1]);
        return all;
    }

  private:
    static void fill(SwatchPanel& panel, int count) {
        for (int i = 0; i < count; ++i) {
            FCOStruct& swatch = panel.records[static_cast<std::size_t>(i)];
            swatch.Namen[0] = 2;
            swatch.Namen[1] = static_cast<std::uint8_t>('a' + i);
            swatch.Namen[2] = '&';
            swatch.SRed = 10000 * (i + 1);
        }
        panel.view.setNumberOfColors(static_cast<std::int16_t>(count));
        panel.storedCount = static_cast<std::int16_t>(count);
        panel.redisplay();
        panel.view.setScrollSize();
    }
};

} // namespace chromalog::test
