#pragma once

#include <optional>
#include <string>
#include <utility>

namespace tarnwell {

// What went wrong, for callers that treat some failures differently. The text for the user is in
// Status::message and already names the file.
enum class Failure {
  kNone,
  kNotFound,     // the file or folder does not exist
  kExists,       // something of that name exists already
  kNameTaken,    // so it is with the name of a save, as the user was told, and no other came
  kNoAccess,     // rights are missing
  kDamaged,      // the content breaks off or contradicts itself
  kUnsupported,  // well-formed, but of a kind that is not read or written here
  kTooLarge,     // wider or taller than 32767 pixels, or more than memory holds
  kDiskFull,
  kCancelled,
  kOther,
};

// The outcome of an operation that can fail: success, or a failure with one line for the user in
// the form "FILE: reason".
struct [[nodiscard]] Status {
  Failure failure = Failure::kNone;
  std::string message;

  bool ok() const { return failure == Failure::kNone; }

  static Status Ok() { return {}; }
  static Status Error(Failure failure, std::string message) {
    return {failure, std::move(message)};
  }
  // The user stopped the work on the file of this name.
  static Status Cancelled(const std::string& name) {
    return Error(Failure::kCancelled, name + ": was cancelled");
  }
};

// A value, or the failure that kept it from being made. `value` is set exactly when `status.ok()`.
template <typename T>
struct [[nodiscard]] Result {
  Status status;
  std::optional<T> value;

  Result(T made) : value(std::move(made)) {}            // NOLINT: success reads as the value
  Result(Status failed) : status(std::move(failed)) {}  // NOLINT: failure reads as the status

  bool ok() const { return status.ok(); }
  T& operator*() { return *value; }
  const T& operator*() const { return *value; }
  T* operator->() { return &*value; }
  const T* operator->() const { return &*value; }
};

}  // namespace tarnwell
