// What a restore is asked to do, and what the user is told when the host refuses.
#pragma once

/// The flags of a restore, from the two options. They follow the options and not whether their boxes are enabled.
int restoreFlags(bool layerNotFound, bool asOverrides);

/// How a restore's status is put to the user.
struct RestoreReport {
    enum class Form {
        none,       ///< nothing is said
        message,    ///< a message box with the text of `stringId`
        taskDialog, ///< the host's task dialog for a layer state that can't be restored
    };
    Form form;
    unsigned int stringId; ///< 0 where the form needs none
};

RestoreReport restoreReport(unsigned int status);
