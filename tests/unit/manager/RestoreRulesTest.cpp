// The flags of a restore, and what is told of its failures.
#include "RestoreRules.h"

#include <gtest/gtest.h>

TEST(RestoreFlags, FollowTheTwoOptions) {
    EXPECT_EQ(restoreFlags(false, false), 0);
    EXPECT_EQ(restoreFlags(true, false), 1);
    EXPECT_EQ(restoreFlags(false, true), 4);
    EXPECT_EQ(restoreFlags(true, true), 5);
}

TEST(RestoreReport, SaysNothingOfSuccess) {
    EXPECT_EQ(restoreReport(0).form, RestoreReport::Form::none);
}

TEST(RestoreReport, HasATextOfItsOwnForEachRestoreThatDidWhatItCould) {
    const struct {
        unsigned int status;
        unsigned int stringId;
    } rows[] = {{173, 125}, {384, 110}, {162, 111}};
    for (const auto& row : rows) {
        const RestoreReport report = restoreReport(row.status);
        EXPECT_EQ(report.form, RestoreReport::Form::message) << row.status;
        EXPECT_EQ(report.stringId, row.stringId) << row.status;
    }
}

TEST(RestoreReport, ShowsTheTaskDialogForEveryOtherStatus) {
    for (const unsigned int status : {3u, 8u, 15u, 23u, 160u, 172u, 174u, 385u, 0xffffffffu}) {
        const RestoreReport report = restoreReport(status);
        EXPECT_EQ(report.form, RestoreReport::Form::taskDialog) << status;
        EXPECT_EQ(report.stringId, 0u) << status;
    }
}
