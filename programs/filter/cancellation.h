// The end of a job before its time: SIGTERM.
#ifndef PROGRAMS_FILTER_CANCELLATION_H_
#define PROGRAMS_FILTER_CANCELLATION_H_

namespace driver_feature::filter {

// From now on SIGTERM cancels the job instead of ending the process. False
// when that cannot be arranged; errno then says why.
bool catchCancellation();

// Whether the job has been cancelled.
bool isCancelled();

// Waits until the descriptor can be read (or written to) or the job is
// cancelled. True for the former.
bool waitToRead(int descriptor);
bool waitToWrite(int descriptor);

// Waits until the descriptor can be written to, cancelled or not. False when
// that takes longer.
bool waitToWrite(int descriptor, int milliseconds);

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_CANCELLATION_H_
