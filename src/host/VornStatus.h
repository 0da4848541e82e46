// The status that nearly every host operation answers, and what operations answer when memory runs out.
//
// Without memory an operation that answers a status answers eOutOfMemory, one that answers a pointer null, a bool
// false, an id the null id, one of the dialog framework what it answers for any failure, and one that answers nothing
// doesn't do its work; where a declaration says otherwise, that holds. Nothing has changed then: neither the drawing,
// nor what is open, nor the arguments. No exception leaves an operation. Only making an object of the host, with `new`
// or as a local, throws std::bad_alloc, and so do strings and arrays, which are values of whoever uses them.
#pragma once

#include "KelExport.h"

#include <cstdint>

namespace Vorn {

/// Outcome of a host operation: 0 for success, anything else a failure. Any 32-bit value may occur; the ones that
/// callers tell apart have names.
enum ErrorStatus : std::int32_t {
    eOk = 0,
    eNotApplicable = 2,
    eInvalidInput = 3, ///< also: a symbol name holds characters that aren't allowed
    eOutOfMemory = 4,
    eNotOpenForWrite = 5,
    eWasOpenForRead = 6,
    eWasOpenForWrite = 7,
    eKeyNotFound = 8,
    eWasErased = 9,
    eNoDatabase = 15, ///< nothing has been opened, or the database is null
    eNullObjectId = 16,
    eDuplicateRecordName = 23, ///< a record of that name stands already
    eNotThatKindOfClass = 28,
    eNameTooLong = 160,
    eLayerUnresolved = 162, ///< restore: a layer of the state is on an unresolved reference
    eCannotFreezeCurrentLayer = 173,
    eFileUnreadable = 190, ///< the drawing file can't be opened for reading
    eFileNotFound = 191,
    eNotADrawing = 192,  ///< the file's bytes aren't a drawing
    eFileCutOff = 193,   ///< the file is shorter than it says, or its tables contradict each other
    eNewerVersion = 194, ///< the file was written by a newer version than this one understands
    eFileWriteFailed = 195,
    eFileChangedOnDisk = 196, ///< someone else wrote the file since it was read
    eCancelled = 197,         ///< the user has cancelled it
    eDependentRecord = 200,   ///< the record belongs to an attached reference and can't be changed
    eRecordInUse = 201,
    eReservedName = 202,
    eNoWorkingDatabase = 374,
    eStyleMissing = 384,       ///< restore: a linetype or plot style of the state isn't in the drawing
    eNotNamedPlotStyles = 407, ///< the drawing uses colour-dependent plot styles
};

} // namespace Vorn

/// The host's text of a status, for the user. Never null; a static text, not to be freed.
KELDB_API const wchar_t* vornErrorStatusText(Vorn::ErrorStatus status);
