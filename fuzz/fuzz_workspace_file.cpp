// Feeds arbitrary bytes to the workspace file reader. Reading must end (completely or
// at its first error) without crashing, keep every list within its capacity, and put
// one tree node in place per stored entry, plus one per group node, up to the node
// whose refusal ended the reading.
#include "FuzzCheck.h"
#include "platform/core/RuntimeError.h"
#include "workspace/core/NodeTree.h"
#include "workspace/core/WorkspaceFile.h"

#include <cstdint>

using namespace tessaro;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    WorkspaceState state;
    NodeTree tree;
    try {
        workspacefile::readWorkspaceBytes(bytes, state, tree);
    } catch (const RuntimeError &) {
        // The reading stops at its first error and keeps what it had read.
    }
    int entries = 0;
    int groupNodes = 0;
    for (Group group :
         {Group::Source, Group::UI, Group::CGame, Group::Game, Group::Resources, Group::Headers}) {
        const int count = state.list(group).count();
        fuzzCheck(count >= 0 && count <= groupInfo(group).capacity);
        entries += count;
        if (count > 0 && groupInfo(group).nodeKey)
            ++groupNodes;
    }
    // The reading stops at the first node the tree refuses (a path listed twice, or a
    // path equal to a group key such as "G"); the entry is stored by then, and a group
    // node refused takes its first file's node with it.
    fuzzCheck(tree.size() <= entries + groupNodes);
    fuzzCheck(tree.size() >= entries + groupNodes - 2);
    return 0;
}
