#pragma once

#include <functional>

namespace ostrak {

// The program's only way of moving work between threads. "main" is the event loop of the
// application object's thread; "back" is a pool of worker threads. Blocks run in the order in which
// they were submitted to main. Work still waiting when the application object goes is dropped.

using Block = std::function<void()>;

void dispatch_async_main(Block block);
// Runs at once when called on the main thread, else submits and waits.
void dispatch_sync_main(const Block &block);
// `seconds` is turned into nanoseconds by multiplying and truncating; never early.
void dispatch_after_main(Block block, float seconds);
void dispatch_async_back(Block block);
void dispatch_sync_back(const Block &block);
// In time also while main is busy. Without an application object the block is dropped.
void dispatch_after_back(Block block, float seconds);
// Waits at most `seconds` for the block, which runs on. True when the wait timed out.
[[nodiscard]] bool dispatch_sync_back_timeout(Block block, float seconds);

// Main thread, before something goes that blocks use: drops all waiting work, lets go of workers
// that wait for main, and waits up to two seconds for the running ones. Later work is taken again.
void dispatch_end();

[[nodiscard]] bool onMainThread();

}  // namespace ostrak
