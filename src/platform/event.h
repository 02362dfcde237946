#pragma once

/// @file
/// Events: raised on the caller's thread, one handler after the other, in the order in which they were
/// connected.

#include <utility>

#include <sigc++/sigc++.h>

namespace zelnor {

/// An event with these arguments. Connect a handler with `connect`, raise the event by calling it.
///
/// @code
/// rti.events.ControllerStatus.connect([](const String& stage, const String& detail, Long percent) {
///   ShowProgress(stage, detail, percent);
/// });
/// @endcode
template <class... Args>
using Event = sigc::signal<void(Args...)>;

/// A handler's connection that ends with this object.
class Subscription {
 public:
  Subscription() = default;
  explicit Subscription(const sigc::connection& connection) : connection_(connection) {}
  Subscription(const Subscription&) = delete;
  Subscription& operator=(const Subscription&) = delete;
  Subscription(Subscription&& other) noexcept : connection_(std::exchange(other.connection_, {})) {}
  Subscription& operator=(Subscription&& other) noexcept {
    std::swap(connection_, other.connection_);
    return *this;
  }
  ~Subscription() { connection_.disconnect(); }

 private:
  sigc::connection connection_;
};

}  // namespace zelnor
