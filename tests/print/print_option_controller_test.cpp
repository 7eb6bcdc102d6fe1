#include "print/print_option_controller.h"

#include "print/print_support.h"

#include <gmock/gmock.h>

namespace chromalog {
namespace {

using test::HeadlessButton;
using test::HeadlessRadioMatrix;
using testing::Contains;
using testing::Not;

class PrintOptionDialog : public testing::Test {
  protected:
    HeadlessButton& check(const std::string& name) { return dialog.dialog().outlet<HeadlessButton>(name); }
    HeadlessRadioMatrix& sizes() { return dialog.dialog().outlet<HeadlessRadioMatrix>("buttonMatrix"); }
    /// Runs the dialog while a person does something to it.
    std::int64_t run(std::function<void()> person) {
        PrintOptionController controller(dialog.options, dialog.screen);
        dialog.screen.modalSteps.push_back(std::move(person));
        dialog.screen.modalSteps.push_back([this] { dialog.dialog().send("ok:"); });
        return controller.showVarianteWindow();
    }
    void choose(int row) {
        sizes().selectRow(row);
        dialog.dialog().send("chooseSize:");
    }
    void tick(const std::string& name, const std::string& action, int state) {
        check(name).setState(state);
        dialog.dialog().send(action);
    }

    test::PrintingDialog dialog;
};

TEST_F(PrintOptionDialog, TheFirstTimeItShowsSmallAndNothingTicked) {
    EXPECT_EQ(run([&] {
                  EXPECT_EQ(sizes().selectedRow(), 0);
                  EXPECT_EQ(sizes().selectedTitle(), "Small");
                  for (const char* name : {"NameCheck", "RGBCheck", "CMYKCheck"})
                      EXPECT_EQ(check(name).state(), 0);
              }),
              1);
    EXPECT_THAT(dialog.screen.logLines, Contains("Done with init variantecontroler"));
    EXPECT_THAT(dialog.screen.logLines, Not(Contains("failed to load SwatchPrintOptions xib")));
}

TEST_F(PrintOptionDialog, TheNextOneOpensWithWhatWasChosen) {
    run([&] {
        choose(2);
        tick("NameCheck", "putName:", 1);
        EXPECT_EQ(dialog.options.printSize, 2) << "written through at once";
        EXPECT_EQ(dialog.options.printName, 1);
    });
    run([&] {
        EXPECT_EQ(sizes().selectedTitle(), "Large");
        EXPECT_EQ(check("NameCheck").state(), 1);
        EXPECT_EQ(check("RGBCheck").state(), 0);
        tick("RGBCheck", "putRGB:", 1);
    });
    run([&] {
        EXPECT_EQ(check("RGBCheck").state(), 1);
        EXPECT_EQ(check("CMYKCheck").state(), 0);
        EXPECT_EQ(check("CMYKCheck").state(), 0);
    });
}

TEST_F(PrintOptionDialog, EachControlWritesItsOwnOption) {
    run([&] {
        tick("RGBCheck", "putRGB:", 1);
        tick("CMYKCheck", "putCMYK:", 1);
        choose(1);
    });
    EXPECT_EQ(dialog.options.printSize, 1);
    EXPECT_EQ(dialog.options.printName, 0);
    EXPECT_EQ(dialog.options.printRGB, 1);
    EXPECT_EQ(dialog.options.printCMYK, 1);
    run([&] {
        tick("RGBCheck", "putRGB:", 0);
        tick("CMYKCheck", "putCMYK:", -1); // mixed: only 1 is on
        choose(0);
    });
    EXPECT_EQ(dialog.options.printSize, 0);
    EXPECT_EQ(dialog.options.printRGB, 0);
    EXPECT_EQ(dialog.options.printCMYK, 0);
}

TEST_F(PrintOptionDialog, ATitleThatIsNoneOfTheThreeChangesNothing) {
    dialog.options.printSize = 1;
    run([&] {
        for (const char* title : {"small", "LARGE", "Large ", "", "Huge"}) {
            sizes().titles = {title};
            choose(0);
            EXPECT_EQ(dialog.options.printSize, 1) << title;
        }
    });
}

TEST_F(PrintOptionDialog, AnAttributeOtherThanTheThreeChangesNothing) {
    for (const std::int16_t which : {3, -1, 100}) {
        PrintOptions options{1, 1, 0, 1};
        options.setPrintAttributes(which, 0);
        options.setPrintAttributes(which, 1);
        EXPECT_EQ(options.printName, 1);
        EXPECT_EQ(options.printRGB, 0);
        EXPECT_EQ(options.printCMYK, 1);
    }
}

TEST_F(PrintOptionDialog, ClosingTheWindowEndsItAsOkDoes) {
    PrintOptionController controller(dialog.options, dialog.screen);
    auto& window = dialog.dialog().outlet<test::HeadlessWindow>("printOptionWindow");
    dialog.screen.modalSteps.push_back([&] { window.onClose(); });
    EXPECT_EQ(controller.showVarianteWindow(), 1);
    EXPECT_FALSE(window.visible());
}

TEST_F(PrintOptionDialog, CancelEndsItWithItsOwnCodeAndKeepsWhatWasWrittenThrough) {
    PrintOptionController controller(dialog.options, dialog.screen);
    dialog.screen.modalSteps.push_back([&] { choose(2); });
    dialog.screen.modalSteps.push_back([&] { dialog.dialog().send("cancelPrint:"); });
    EXPECT_FALSE(controller.cancelled());
    EXPECT_EQ(controller.showVarianteWindow(), 0);
    EXPECT_TRUE(controller.cancelled());
    EXPECT_EQ(dialog.options.printSize, 2);
}

TEST_F(PrintOptionDialog, WithoutItsFormTheOptionsStay) {
    dialog.options = {2, 1, 1, 0};
    dialog.screen.missingForms.insert("SwatchPrintOptions");
    PrintOptionController controller(dialog.options, dialog.screen);
    EXPECT_EQ(controller.showVarianteWindow(), 0);
    controller.chooseSize();
    EXPECT_THAT(dialog.screen.logLines, testing::ElementsAre("failed to load SwatchPrintOptions xib",
                                                             "Done with init variantecontroler"));
    EXPECT_EQ(dialog.options.printSize, 2);
    EXPECT_EQ(dialog.options.printName, 1);
}

TEST_F(PrintOptionDialog, NothingSetsTheSharedPointer) {
    PrintOptionController controller(dialog.options, dialog.screen);
    EXPECT_EQ(PrintOptionController::printOptionController(), nullptr);
}

} // namespace
} // namespace chromalog
