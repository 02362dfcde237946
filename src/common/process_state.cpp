#include "zelnor/common/process_state.h"

namespace zelnor {

ProcessState& Process() {
  static ProcessState state;
  return state;
}

}  // namespace zelnor
