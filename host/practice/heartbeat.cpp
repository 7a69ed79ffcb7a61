#include "practice/heartbeat.h"

#include "session/connection.h"

namespace host {

Heartbeat::Heartbeat(std::function<void()> beat, std::chrono::seconds every)
    : thread_([this, beat = std::move(beat), every](const std::stop_token& stop) {
        std::unique_lock rest(resting_);
        while (!stopped_.wait_for(rest, stop, every, [&stop] { return stop.stop_requested(); })) {
          try {
            beat();
          } catch (const session::DatabaseError&) {
            continue;
          }
        }
      }) {}

}  // namespace host
