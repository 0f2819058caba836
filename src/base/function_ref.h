#pragma once

#include <memory>
#include <type_traits>
#include <utility>

namespace orvane {

template <class Signature>
class FunctionRef;

/// A callable that somebody else owns, to be passed down a call and not kept beyond it.
template <class Result, class... Arguments>
class FunctionRef<Result(Arguments...)> {
 public:
    template <class Callable, class = std::enable_if_t<!std::is_same_v<std::decay_t<Callable>, FunctionRef>>>
    FunctionRef(Callable&& callable) noexcept  // NOLINT(bugprone-forwarding-reference-overload)
        : object_(const_cast<void*>(static_cast<const void*>(std::addressof(callable)))),
          call_([](void* object, Arguments... arguments) -> Result {
              return (*static_cast<std::remove_reference_t<Callable>*>(object))(
                  std::forward<Arguments>(arguments)...);
          }) {}

    Result operator()(Arguments... arguments) const {
        return call_(object_, std::forward<Arguments>(arguments)...);
    }

 private:
    void* object_;
    Result (*call_)(void*, Arguments...);
};

}  // namespace orvane
