#include "Advice.h"

#include "RemoteAddress.h"

namespace remote {

const wchar_t* adviceOn(CProxyInetStatus status) {
    switch (status) {
    case eInetBadAddress:
        return adviceOn(AddressKind::Malformed);
    case eInetUnknownScheme:
        return adviceOn(AddressKind::UnknownScheme);
    case eInetHostNotFound:
        return L"Check the server's name and this computer's connection to the network.";
    case eInetNoConnection:
        return L"Check this computer's connection to the network, and the port if the address has one; otherwise the "
               L"server isn't running.";
    case eInetTimedOut:
    case eInetServerFailed:
        return L"Try again later; if that doesn't help, ask those who run the server.";
    case eInetCutOff:
        return L"Try again.";
    case eInetNotUnderstood:
        return L"Check that the address is that of a file on a web server.";
    case eInetNotSecure:
        return L"Check this computer's date; if it is right, ask those who run the server for a valid certificate.";
    case eInetBadRedirect:
        return L"Ask those who run the server for the file's own address.";
    case eInetSignInNeeded:
        return L"Use a place that needs no sign-in, or transfer the file with a program that signs in.";
    case eInetRefused:
        return L"Ask those who run the server whether files may be read and written there.";
    case eInetFolderAbsent:
        return L"Make the folder there first, or choose one that is there.";
    case eInetServerFull:
        return L"Make room there, or choose another server.";
    case eInetLocalUnwritable:
        return L"Make room on this computer, and check that files may be written there.";
    default:
        return L"";
    }
}

} // namespace remote
