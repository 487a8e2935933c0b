// An overlay lays one record over another: what a product sets over what a module has by itself, what a
// driver supplies over what the interface can do. A member that is zero or null lets the one below show. The
// members that take part stand in one table, beside their record.
#pragma once

#include <tuple>
#include <type_traits>

// Takes over into `below` the members of the table that are set in `above`.
template <class T, class... M>
constexpr void overlay(T& below, const T& above, const std::tuple<M T::*...>& members)
{
    const auto lay = [&](auto member) {
        if (above.*member != std::remove_cvref_t<decltype(above.*member)>{})
            below.*member = above.*member;
    };
    std::apply([&](auto... member) { (lay(member), ...); }, members);
}
