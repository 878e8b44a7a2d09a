#pragma once
// The resident-set peak of this process, and resetting it so that each phase
// of a benchmark gets a peak of its own.

namespace bench {

// VmHWM in kB from /proc/self/status; -1 when it cannot be read.
long PeakResidentKb();

// Sets the peak back to the current resident size (writes "5" to
// /proc/self/clear_refs). Returns false when the kernel refuses, in which case
// later peaks are the process's since it started.
bool ResetPeakResident();

}  // namespace bench
