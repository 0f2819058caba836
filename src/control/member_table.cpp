#include "control/member_table.h"

#include <algorithm>
#include <array>

#include "control/members/access.h"

namespace orvane {
namespace {

constexpr std::size_t kMemberCount = 113;
using Table = std::array<Member, kMemberCount>;

Table joinedRows() noexcept {
    Table table{};
    auto* end = table.data();
    for (const auto rows : {members::pictureMembers(), members::filterMembers(), members::viewMembers(),
                            members::drawingMembers()}) {
        end = std::copy(rows.begin(), rows.end(), end);
    }
    std::sort(table.data(), end, [](const Member& a, const Member& b) { return a.id < b.id; });
    return table;
}

}  // namespace

std::span<const Member> memberTable() noexcept {
    static const Table table = joinedRows();
    return table;
}

const Member* findMember(int id) noexcept {
    const auto table = memberTable();
    const auto found = std::lower_bound(table.begin(), table.end(), id,
                                        [](const Member& member, int wanted) { return member.id < wanted; });
    return found != table.end() && found->id == id ? &*found : nullptr;
}

const Member* findMember(std::string_view name) noexcept {
    const auto table = memberTable();
    const auto found = std::find_if(table.begin(), table.end(),
                                    [name](const Member& member) { return name == member.name; });
    return found != table.end() ? &*found : nullptr;
}

const char* valueTypeName(ValueType type) noexcept {
    switch (type) {
        case ValueType::None:
            return "";
        case ValueType::Boolean:
            return "Boolean";
        case ValueType::Byte:
            return "Byte";
        case ValueType::Long:
            return "Long";
        case ValueType::Double:
            return "Double";
        case ValueType::Color:
            return "Color";
        case ValueType::String:
            return "String";
        case ValueType::ByteArray:
            return "ByteArray";
        case ValueType::LongArray:
            return "LongArray";
    }
    return "";
}

}  // namespace orvane
