// What the drawing control record's items are called in JSON.
#pragma once

#include <string_view>

namespace quorvan::tool {

struct ControlMember {
  std::string_view key;
  std::string_view item;
};

inline constexpr ControlMember kControlMembers[] = {
    {"name", "DrawingName"},
    {"version", "ZantoVersion"},
    {"servicePack", "ServicePack"},
    {"checkSum", "CheckSum"},
};

}  // namespace quorvan::tool
