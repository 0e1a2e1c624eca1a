// SPDX-License-Identifier: GPL-3.0-or-later
// How results come back from worker threads: as functions that the receiver's own thread runs one
// by one, in the order in which they were handed over. Used by everything in this room that works
// in the background.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

class QObject;

namespace morva {

/// Takes a function from any thread and returns at once; the receiver's thread runs it later.
using CallbackQueue = std::function<void(std::function<void()>)>;

/// Runs the functions in the event loop of the thread that `receiver` lives in and this is called
/// on. Each call makes another queue, which can be copied and lasts as long as `receiver`; that
/// must live longer than whoever works in the background. What is still queued when it ends is
/// dropped.
CallbackQueue callbacksOf(QObject& receiver);

/// The same for a program without an event loop: its thread asks for the functions when it waits.
class CallbackLoop {
public:
    CallbackLoop();

    /// May outlive the loop; its functions are then never run.
    CallbackQueue queue() const;

    /// Runs one function on the calling thread, waiting up to `patience` for it; false when none
    /// came.
    bool runNext(std::chrono::milliseconds patience);

private:
    struct Waiting;
    std::shared_ptr<Waiting> waiting_;
};

}  // namespace morva
