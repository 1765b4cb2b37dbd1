// The body of a record as the bytes that it is for the companion module and for copying.
#pragma once

#include <string_view>

#include "ddb/print_option_body.h"

namespace ddb {

inline std::string_view BytesOf(const PrintOptionBody& body) {
  return {reinterpret_cast<const char*>(&body), sizeof body};
}

}  // namespace ddb
