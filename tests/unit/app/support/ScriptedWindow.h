// A window around a session that answers questions as a test has told it to, and keeps what it was told.
#pragma once

#include "SessionWindow.h"

#include <vector>

class ScriptedWindow : public workbench::SessionWindow {
  public:
    std::wstring printed;
    std::vector<std::wstring> failures;
    std::vector<std::wstring> questions;
    workbench::SaveAnswer saveAnswer = workbench::SaveAnswer::Cancel;
    bool overwrite = false;
    bool attended = true;
    workbench::LookAnswer lookAnswer = workbench::LookAnswer::Cancel;
    std::vector<workbench::FolderAnswer> answers; ///< those that are kept
    std::optional<std::wstring> chosenFile;
    std::wstring proposal;
    int replaced = 0, changed = 0, zoomed = 0, quits = 0;
    double scale = 1;
    bool canZoom = true;       // whether it zooms any further, shows a window, or has something to go back to
    std::vector<double> shown; // left, bottom, right and top of what was to be shown last, as given
    std::vector<double> moved;
    int wentBack = 0;
    bool canPick = true;
    std::optional<workbench::PickedFor> pickedFor;
    std::vector<std::wstring> abouts, opened, missing;
    std::vector<std::wstring> scriptLines;
    bool scriptKeepsGoing = false;
    bool takesScripts = true;
    std::vector<std::wstring> modules;
    std::wstring moduleProblem;
    bool modulesAgree = true;

    void print(const std::wstring& text) override { printed += text; }
    void echo(const std::wstring& text) override { printed += text; }
    void showFailure(const std::wstring& text) override { failures.push_back(text); }
    workbench::SaveAnswer askToSave(const std::wstring& name) override {
        questions.push_back(L"save " + name);
        return saveAnswer;
    }
    bool askToOverwrite(const std::wstring& reason) override {
        questions.push_back(reason);
        return overwrite;
    }
    bool isAttended() const override { return attended; }
    workbench::LookAnswer askToLookOutside(const std::wstring& question) override {
        questions.push_back(question);
        return lookAnswer;
    }
    std::vector<workbench::FolderAnswer> keptAnswers() const override { return answers; }
    void keepAnswer(const workbench::FolderAnswer& answer) override { answers.push_back(answer); }
    void forgetAnswer(const std::wstring& folder) override {
        std::erase_if(answers, [&](const workbench::FolderAnswer& answer) { return answer.folder == folder; });
    }
    std::optional<std::wstring> chooseFileToOpen() override {
        questions.push_back(L"open");
        return chosenFile;
    }
    std::optional<std::wstring> chooseFileToSave(const std::wstring& name) override {
        questions.push_back(L"save as");
        proposal = name;
        return chosenFile;
    }
    std::optional<std::wstring> chooseScript() override {
        questions.push_back(L"script");
        return chosenFile;
    }
    void drawingReplaced() override { ++replaced; }
    void drawingChanged() override { ++changed; }
    void zoomExtents() override { ++zoomed; }
    bool zoomBy(double factor) override {
        if (canZoom)
            scale *= factor;
        return canZoom;
    }
    bool zoomTo(zdr::Point corner, zdr::Point opposite) override {
        if (canZoom)
            shown = {corner.x, corner.y, opposite.x, opposite.y};
        return canZoom;
    }
    bool zoomPrevious() override {
        wentBack += canZoom ? 1 : 0;
        return canZoom;
    }
    void moveBy(zdr::Point displacement) override { moved = {displacement.x, displacement.y}; }
    bool pickPoints(workbench::PickedFor purpose) override {
        if (canPick)
            pickedFor = purpose;
        return canPick;
    }
    void showAbout(const std::wstring& text) override { abouts.push_back(text); }
    void fileOpened(const std::wstring& path) override { opened.push_back(path); }
    void fileMissing(const std::wstring& path) override { missing.push_back(path); }
    bool runScript(workbench::Script script) override {
        if (takesScripts) {
            scriptLines = std::move(script.lines);
            scriptKeepsGoing = script.keepsGoing;
        }
        return takesScripts;
    }
    std::wstring loadModule(const std::wstring& path) override {
        if (moduleProblem.empty())
            modules.push_back(path);
        return moduleProblem;
    }
    bool unloadModule(const std::wstring& path) override {
        if (modulesAgree)
            std::erase(modules, path);
        return modulesAgree;
    }
    std::vector<std::wstring> loadedModules() const override { return modules; }
    void quit() override { ++quits; }
};
