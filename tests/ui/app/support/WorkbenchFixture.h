// The Workbench's main window in the process of the test, used by a scripted person.
#pragma once

#include "Driver.h"
#include "MainWindow.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

class WorkbenchTest : public testing::Test {
  protected:
    WorkbenchTest();
    ~WorkbenchTest() override;

    /// Runs the message loop of the main window; the script ends it by closing the window.
    void runWith(ui::Script script);
    /// The same; the script leaves changes, which are thrown away.
    void runAndThrowAway(ui::Script script);
    /// Steps that type a line into the command line and wait until it has run.
    static ui::Script command(const std::wstring& line);
    /// A step that waits until the history shows the text.
    static ui::Script said(const std::wstring& text);
    /// A step that waits until the title names the drawing so: "plan.zdr", or "plan.zdr*" with changes.
    static ui::Script titleIs(const std::wstring& drawing);
    /// Steps that answer the message box with that text by the button of that id.
    static ui::Script answerBox(const std::wstring& text, int button);

    workbench::Session& session() { return window->session(); }
    std::wstring path(const char* name) const { return (folder / name).wstring(); }
    /// What shows the drawing.
    workbench::DrawingView& shown() const;
    /// Writes a drawing of two layers, a sheet and a viewport.
    void writeSample(const char* name);
    void writeDrawing(const char* name, const zdr::Drawing& drawing) const;

    std::filesystem::path folder;
    std::unique_ptr<workbench::MainWindow> window;
};
