// Work on background threads. Any thread.
#pragma once

#include "src/platform/owned.h"

struct NSBlockOperation : NSObject {
    // An operation that runs the block (+0). It keeps its own reference to the block.
    static NSBlockOperation withBlock(NSObject block) {
        return zelka::send<NSBlockOperation, "blockOperationWithBlock:">(zelka::platformClass<NSBlockOperation>(),
                                                                         block);
    }
};

struct NSOperationQueue : NSObject {
    [[nodiscard]] static zelka::Owned<NSOperationQueue> create() { return zelka::allocInit<NSOperationQueue>(); }
    // Returns at once; the queue keeps the operation until it has finished.
    void add(NSBlockOperation operation) const { zelka::send<void, "addOperation:">(*this, operation); }
};
