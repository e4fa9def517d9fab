// Runs code that a host or the window system calls into, and keeps any C++ exception on our side of the
// call: an exception that crossed into the host's frames would end the host. The caller gets fallback.
#pragma once

#include <utility>

template <typename Result, typename Call> Result callWithoutThrowing(Result fallback, Call&& call) noexcept
{
    try
    {
        return std::forward<Call>(call)();
    }
    catch (...)
    {
        return fallback;
    }
}

// The same for calls that answer nothing.
template <typename Call> void callWithoutThrowing(Call&& call) noexcept
{
    try
    {
        std::forward<Call>(call)();
    }
    catch (...)
    {
    }
}
