// The host's texts of its statuses.

#include "VornStatus.h"

#include "instruments/HostCalls.h"

namespace {

const wchar_t* statusText(Vorn::ErrorStatus status) {
    switch (status) {
    case Vorn::eOk:
        return L"No error";
    case Vorn::eNotApplicable:
        return L"Not applicable";
    case Vorn::eInvalidInput:
        return L"Invalid input";
    case Vorn::eOutOfMemory:
        return L"There isn't enough memory";
    case Vorn::eNotOpenForWrite:
        return L"The object isn't open for writing";
    case Vorn::eWasOpenForRead:
        return L"The object is open for reading";
    case Vorn::eWasOpenForWrite:
        return L"The object is open for writing";
    case Vorn::eKeyNotFound:
        return L"No record of that name";
    case Vorn::eWasErased:
        return L"The object was erased";
    case Vorn::eNoDatabase:
        return L"No drawing";
    case Vorn::eNullObjectId:
        return L"No object";
    case Vorn::eDuplicateRecordName:
        return L"A record of that name exists already";
    case Vorn::eNotThatKindOfClass:
        return L"The object is of another kind";
    case Vorn::eNameTooLong:
        return L"The name is too long";
    case Vorn::eLayerUnresolved:
        return L"A layer is on an unresolved reference";
    case Vorn::eCannotFreezeCurrentLayer:
        return L"The current layer can't be frozen";
    case Vorn::eFileUnreadable:
        return L"The file can't be read";
    case Vorn::eFileNotFound:
        return L"The file doesn't exist";
    case Vorn::eNotADrawing:
        return L"The file isn't of the expected kind";
    case Vorn::eFileCutOff:
        return L"The file is damaged";
    case Vorn::eNewerVersion:
        return L"The file was written by a newer version";
    case Vorn::eFileWriteFailed:
        return L"The file can't be written";
    case Vorn::eFileChangedOnDisk:
        return L"The file was changed by someone else";
    case Vorn::eCancelled:
        return L"It was cancelled";
    case Vorn::eDependentRecord:
        return L"The record belongs to a reference";
    case Vorn::eRecordInUse:
        return L"The record is in use";
    case Vorn::eReservedName:
        return L"The name is reserved";
    case Vorn::eNoWorkingDatabase:
        return L"No current drawing";
    case Vorn::eStyleMissing:
        return L"A linetype or plot style is missing";
    case Vorn::eNotNamedPlotStyles:
        return L"The drawing doesn't use named plot styles";
    }
    return L"Unknown error";
}

} // namespace

const wchar_t* vornErrorStatusText(Vorn::ErrorStatus status) {
    instruments::HostCall call("vornErrorStatusText", status);
    return call.answer(statusText(status));
}
