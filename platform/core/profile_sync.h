// What keeps profile files whole through a power cut.
//
// A new file is on the disk before it takes the old one's name, so the disk holds the one or the
// other. Waiting for the disk takes a millisecond or more, too long for hundreds of keys in a row.
// Once a run of writes has waited its share, the next ones take the name unsynced: the last synced
// file then keeps a second name beside it, the new one carries a mark of what it should hold, and a
// thread syncs it shortly afterwards, or, where the program was killed, one of the next program
// that opens it. After a power cut before that, the mark tells a reader that the file is torn, and
// it takes the synced one.
//
// All functions may be called from any thread. Those that change a folder need its lock.
#pragma once

#include <sys/stat.h>

#include <chrono>
#include <string>
#include <string_view>

#include "platform/core/descriptor.h"

namespace vxd {

// Takes the lock of a folder, which ends with the descriptor. Waits for at most a second; after a
// wait in vain, others for that folder refuse at once for some seconds, so that a lock which stays
// held delays a program once and not at each of its writes.
bool LockFolder(const Descriptor& folder);

// The second name of a file's last synced state.
std::string SyncedNameOf(const std::string& name);

// Writes the file's contents to the disk and waits for it.
bool Sync(const Descriptor& file);

// True when writes have waited for the disk for so long of late that the next ones must not.
bool MustNotWaitForDisk();

// Marks an open file as not synced yet, with what it holds. False where a file can't carry a mark.
bool MarkUnsynced(const Descriptor& file, std::string_view bytes);
bool IsMarkedUnsynced(const Descriptor& file);
void RemoveMark(const Descriptor& file);

// True when a marked file does not hold what it was marked with and nobody has changed it since.
bool IsTorn(const Descriptor& file, const struct stat& status, std::string_view bytes);

// Has the marked file, which is not torn, synced, and its mark and the synced file's second name
// taken away: by a thread in a moment, or as the program ends.
void SyncLater(const Descriptor& folder, const std::string& name);

}  // namespace vxd
