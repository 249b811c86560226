// A disk that fails when it is told to: stands between the store and the system in the program that links it.
#pragma once

#include <string>

namespace FailingDisk {

/**
 * From now on the call of that number, counted from 1 over all that change or sync something, fails with @p error.
 * @param forGood all calls after it fail as well
 */
void failAt(int call, int error, bool forGood);

/** The function of the call that failed first; empty for none. */
std::string failedFunction();

/** How many syncs there were since this was asked last, also while nothing fails. */
int takeSyncs();

/** From now on nothing can be read, for that reason. */
void failReads(int error);

/** Works again. Returns how many calls there were, failed ones included. */
int repair();

} // namespace FailingDisk
