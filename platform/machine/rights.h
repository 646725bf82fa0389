#pragma once

#include "platform/machine/descriptor.h"

#include <optional>
#include <string>
#include <sys/types.h>

namespace klopfmeise {

/// Who may use a file or a folder. What the program makes in a folder takes the rights of that folder
/// whatever the user's umask, so that all who share the folder can write it.
struct Rights {
    mode_t mode = 0644;
    std::optional<uid_t> owner;
    std::optional<gid_t> group;
    /// An access list beside the mode, in the form in which the system keeps it; empty where there is none.
    std::string accessList;
    /// The folder has a default list, which the system itself gives to all that is made there.
    bool inherited = false;
};

/// The rights of a new file or folder in `folder`.
Rights rightsForFileIn(const std::string& folder);
Rights rightsForFolderIn(const std::string& folder);
/// The rights of an open file, owner included.
Rights rightsOf(const Descriptor& file);

/// Gives rights to what this user has just made. What the system or the share refuses stays undone.
void give(const Rights& rights, const Descriptor& made);

/// Makes a file with these rights; fails if there is one.
Descriptor makeFile(const std::string& place, int flags, const Rights& rights);

} // namespace klopfmeise
