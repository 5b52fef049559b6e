// The end of a process that was asked to end and cannot, because a disk that does not answer blocks its calls.
#pragma once

namespace LastResort {

/// Ends the process in 30 seconds, whatever it does then; the first call counts. That loses no more than a power cut:
/// nothing.
void EndSoon();

} // namespace LastResort
