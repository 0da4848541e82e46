// Remote files of the host: over HTTP and HTTPS, by the system's own client. Windows tier.
#pragma once

#include "KelExport.h"
#include "OrvUiUtilities.h"

/// Outcome of a remote operation. 20000 and 20012 are the ones that callers tell apart; the others say what was wrong.
enum CProxyInetStatus : int {
    eInetOk = 20000,              ///< it went well
    eInetNotRemote = 20001,       ///< a path of this computer or its network; nothing was transferred
    eInetBadAddress = 20002,      ///< an address with a mistake in it; nothing was sent
    eInetUnknownScheme = 20003,   ///< an address of something else than HTTP; nothing was sent
    eInetUnknownMode = 20004,     ///< the mode is neither kInetFetch nor kInetUpload
    eInetHostNotFound = 20005,    ///< no server of that name is known
    eInetNoConnection = 20006,    ///< the server can't be reached, or refuses to be connected to
    eInetTimedOut = 20007,        ///< the server didn't answer in time, or the line to it is too slow
    eInetCutOff = 20008,          ///< the line was cut before everything had been sent or had come
    eInetNotUnderstood = 20009,   ///< the answer isn't HTTP, or doesn't say how long the file is
    eInetNotSecure = 20010,       ///< https: the server's certificate isn't trusted, or there was no handshake
    eInetBadRedirect = 20011,     ///< the server sends on too often, or to where none is followed
    eInetTargetAbsent = 20012,    ///< fetch: there is no such file
    eInetSignInNeeded = 20013,    ///< the server asks who it is
    eInetRefused = 20014,         ///< the server refuses the request for another reason
    eInetFolderAbsent = 20015,    ///< upload: the folder for the file isn't there
    eInetServerFailed = 20016,    ///< the server failed on its own side
    eInetServerFull = 20017,      ///< upload: the server has no room for the file
    eInetTooLarge = 20018,        ///< the file has 4 GiB or more, or more than the server takes
    eInetLocalUnreadable = 20019, ///< upload: the local file can't be read
    eInetLocalUnwritable = 20020, ///< fetch: the local file can't be written
    eInetNoMemory = 20021,
    eInetSystemFailed = 20022, ///< the system's client failed in a way of its own
    eInetCancelled = 20023,    ///< the user has cancelled the transfer
};

/// Modes of CProxyInet::TransferFile.
inline constexpr int kInetFetch = 1;
inline constexpr int kInetUpload = 4;

/// The host's remote file service. The calls end when the transfer has ended. One that takes longer than a second is
/// shown in a window in which the user can cancel it; no other window of the program can be used meanwhile.
class KELUI_API CProxyInet {
  public:
    /// The one service of this process, which is the host's. Null when there is none.
    static CProxyInet* GetProxyInet();

    /// Fetches the file at an address into a local file, or uploads a local file to an address.
    /// @param url        "http://..." or "https://...", at most 1023 characters. A path of this computer answers
    ///                   eInetNotRemote at once.
    /// @param localName  the local file. A fetch replaces it as a whole when everything has come; otherwise it stays
    ///                   as it was. When it is empty, a fetch only asks whether the file is there: nothing is fetched,
    ///                   and it stays empty.
    /// @param mode       kInetFetch or kInetUpload. After an upload, whether it went well or not, a temporary file of
    ///                   this service is deleted.
    /// @param flags      always 1, and of no further meaning
    /// @return a CProxyInetStatus
    int TransferFile(const wchar_t* url, OrvXREFString& localName, int mode, int flags);

    /// Makes an empty file in the user's temporary folder, with the extension of the file at the address. The file is
    /// the service's: it is deleted after it has been uploaded, or else when the program ends.
    /// @param localName  receives its path, at most 1023 characters; left as it was on failure
    /// @return a CProxyInetStatus
    int CreateInternetTempFile(const wchar_t* url, OrvXREFString& localName);

  private:
    CProxyInet() = default;
};
