#pragma once

#include <utility>

namespace host {

/// Raises a flag for as long as it lives; the flag then is again what it was.
class Raised {
public:
    explicit Raised(bool& flag) : flag_(flag), former_(std::exchange(flag, true)) {}
    ~Raised() { flag_ = former_; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

private:
    bool& flag_;
    bool former_;
};

} // namespace host
