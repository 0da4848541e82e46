// Layer states of the older layer tool become states of the drawing.
#pragma once

/// Turns each state in the layers' extended data into a layer state of the working drawing, with all properties, and
/// takes it out of the extended data. The drawing's layers are as before afterwards. A state goes over by way of them,
/// and between two states they aren't put back: a layer that has no block of a state keeps what the state before it
/// left there.
/// @param count grows by 1 with each state that is saved, also when a later one fails
/// @return whether all of them went over; false when there are none
bool convertLegacyStates(int& count);
