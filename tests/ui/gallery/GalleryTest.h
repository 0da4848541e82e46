// A window of the product opened with the sample house behind it, looked at, and photographed when somebody wants the
// pictures: $KEL_PICTURES names their folder.
#pragma once

#include "Driver.h"
#include "MainWindow.h"
#include "ModuleLoader.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <memory>
#include <string>

namespace gallery {

class GalleryTest : public testing::Test {
  protected:
    GalleryTest();
    ~GalleryTest() override;

    /// Runs the main window with the sample open; the steps begin when it is shown, and it is closed after them.
    void useWorkbench(ui::Script script);
    /// Runs `open`, which shows a dialog, with the main window behind it.
    void showDialog(ui::Script script, const std::function<void()>& open);
    /// Runs a line of the command line without typing it.
    void run(const std::wstring& line);
    workbench::MainWindow& window() { return *m_window; }

    /// Steps: the pointer away from everything, and then until nothing on the screen changes any more.
    static ui::Script settled();
    /// The same, with the pointer where it is.
    static ui::Script still();
    /// Steps: settled(), and a picture of the facing window.
    static ui::Script picture(const std::string& name);
    /// The same, of the main window with what stands over it.
    ui::Script pictureOfAll(const std::string& name) const;
    /// As picture(), with the layout looked at first; for windows that are ours.
    static ui::Script pictureOfOurs(const std::string& name);

    /// Saves a part of the screen; nothing when no pictures are wanted.
    static void savePicture(const std::string& name, const RECT& part);

  private:
    std::unique_ptr<workbench::MainWindow> m_window;
    runtime::ModuleLoader m_modules;
};

} // namespace gallery
