#pragma once

namespace orvane {

/// What is asked of a member.
enum class InvokeKind { Method, Get, Put };

/// Why a call did not reach its member.
enum class DispatchStatus {
    Success,
    MemberNotFound,  ///< no such member, or it is not of this kind (a put of a property that can only be
                     ///< read)
    ArgumentCount,
    ArgumentType,
    ArgumentRange,  ///< a number that the parameter's type cannot hold
};

struct DispatchResult {
    DispatchStatus status = DispatchStatus::Success;
    int argument = -1;  ///< the argument at fault, counted from 0

    explicit operator bool() const { return status == DispatchStatus::Success; }
};

}  // namespace orvane
