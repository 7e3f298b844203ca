// The operations of the library, one function per question.
#ifndef BENCH_LIBRARY_OPERATIONS_H_
#define BENCH_LIBRARY_OPERATIONS_H_

#include "bench/operation.h"

namespace driver_feature::bench {

void addLoading(Operations& operations);
void addReading(Operations& operations);
void addWriting(Operations& operations);
void addOptionLookUp(Operations& operations);
void addNotification(Operations& operations);
void addSerialization(Operations& operations);
void addRestoring(Operations& operations);
void addRecords(Operations& operations);
void addDump(Operations& operations);
void addLongLists(Operations& operations);
void addHandWritten(Operations& operations);
void addImported(Operations& operations);

}  // namespace driver_feature::bench

#endif  // BENCH_LIBRARY_OPERATIONS_H_
