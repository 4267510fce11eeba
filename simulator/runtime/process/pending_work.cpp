#include "simulator/runtime/process/pending_work.h"

#include <vector>

namespace phone {
namespace {

std::vector<WorkCount>& sources() {
    static std::vector<WorkCount> all;
    return all;
}

}  // namespace

void addWorkSource(WorkCount count) { sources().push_back(count); }

long pendingWork() {
    long sum = 0;
    for (const WorkCount count : sources()) sum += count();
    return sum;
}

}  // namespace phone
