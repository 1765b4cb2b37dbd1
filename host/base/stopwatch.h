// The performance counter in milliseconds.
#pragma once

namespace zn::host {

[[nodiscard]] double MillisecondsNow() noexcept;

}  // namespace zn::host
