// Random input on the Workbench and on whatever it opens, one thing at each tick of a timer.
#pragma once

#include "Nonsense.h"

#include <windows.h>

#include <cstdio>
#include <functional>
#include <random>
#include <string>

class Monkey {
  public:
    /// @param folder where the files that it saves may go, with a separator at its end
    /// @param log gets a line for each action
    Monkey(unsigned seed, std::wstring folder, std::FILE* log);

    /// Does one thing to the window that takes the input.
    void act(HWND mainWindow);
    /// Does one thing that brings the end of the life nearer: closes the window in front.
    void leave(HWND mainWindow);
    /// Opens the next of the dialogs that the manager opens, and those open, where the window in front has the button
    /// for it. Answers whether it has, or is just being covered by another.
    bool openNextDialog();
    long actions() const { return m_actions; }

  private:
    void actOnMain(HWND window);
    void actOnDialog(HWND window);
    void typeLine();
    void pressSomeKey();
    void useMouse(HWND window);
    void openSomeDialog(HWND window);
    void clickSomeControl(HWND window, bool (*isMeant)(HWND));
    void note(const std::string& what);
    std::size_t below(std::size_t bound) { return std::uniform_int_distribution<std::size_t>(0, bound - 1)(m_random); }

    std::mt19937 m_random;
    Nonsense m_nonsense;
    std::FILE* m_log;
    HWND m_front = nullptr; // the dialog in front at the last action in one, and how long it has been
    int m_patience = 0;
    std::size_t m_opened = 0; // how many dialogs openNextDialog has opened
    long m_actions = 0;
};
