// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// A persistent store of typed values. Main thread only. Reads return the value that was set last,
/// even if it could not be written to the disk.
class Preferences {
 public:
  virtual ~Preferences() = default;

  /// Each returns nothing if the key is absent or holds a value of another type.
  virtual std::optional<std::string> string(std::string_view key) const = 0;
  virtual std::optional<double> number(std::string_view key) const = 0;
  virtual std::optional<bool> boolean(std::string_view key) const = 0;

  virtual void setString(std::string_view key, std::string_view value) = 0;
  virtual void setNumber(std::string_view key, double value) = 0;
  virtual void setBoolean(std::string_view key, bool value) = 0;
};

}  // namespace corvane
