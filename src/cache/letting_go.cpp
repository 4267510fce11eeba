#include "src/cache/letting_go.h"

#include "src/cache/queue.h"
#include "src/platform/block.h"
#include "src/platform/foundation/NSAutoreleasePool.h"

namespace zelka {
namespace {

// Of pictures, about a millisecond's work.
constexpr std::size_t kBatch = 512;

}  // namespace

void letGo(ObjectMap::Contents contents) {
    AutoreleasePool pool;
    if (!contents.destroySome(kBatch)) return;
    Owned<Block> rest = makeBlock([contents = std::move(contents)]() mutable { letGo(std::move(contents)); });
    queue().add(NSBlockOperation::withBlock(rest.get()));
}

}  // namespace zelka
