#pragma once

#include "zelnor/platform/failure.h"

namespace zelnor {

/// The number of the error that `body` raises, 0 when it raises none.
template <class Body>
Long ErrorNumberOf(Body&& body) {
  try {
    body();
    return 0;
  } catch (const RuntimeError& error) {
    return error.Number();
  }
}

}  // namespace zelnor
