// Whether a text that the user has typed may be the name of a layer state.
#pragma once

/// Whether the host's rules allow the name, which the caller has trimmed; when they don't, the user has been told why,
/// unless the host gives a reason that there is no text for. A name that another state bears is allowed here: the
/// callers treat it in different ways. Needs a resource scope of the caller's.
/// @return 1 if the name may be used, otherwise 0
int CheckStateName(const wchar_t* name);

/// How many characters the boxes take in which a name is typed.
int stateNameLimit();
