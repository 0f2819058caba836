#pragma once

#include <span>
#include <string_view>

#include "control/member.h"

namespace orvane {

/// All members of `IVistrel` in the order of their dispatch identifiers.
[[nodiscard]] std::span<const Member> memberTable() noexcept;

/// The member of that identifier or name (case counts); null when there is none.
[[nodiscard]] const Member* findMember(int id) noexcept;
[[nodiscard]] const Member* findMember(std::string_view name) noexcept;

/// The type's name as the documentation writes it: "Long", "Color" and so on; "" for None.
[[nodiscard]] const char* valueTypeName(ValueType type) noexcept;

}  // namespace orvane
