// Tests of the cells whose value is picked in one of the host's own dialogs, each answered in its real window.
#pragma once

#include "EditClicksTest.h"

#include "pickers/PickerIds.h"

#include <string>

class PickingTest : public EditClicksTest {
  protected:
    /// Opens a drawing of ten rows with the linetypes Continuous and Dashed and the plot styles Fine and Normal.
    void openDrawing(bool colorDependentPlotStyles = false);
    /// The values of a row that can be picked are as they were read.
    void expectValuesAsRead(int row) const;
    /// The only call of an operation so far; otherwise how many there have been.
    static std::string lineOf(const std::string& operation);

    static constexpr int kRow = 3;
    static constexpr int kRows = 10;
};
