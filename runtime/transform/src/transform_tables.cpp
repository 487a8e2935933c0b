#include "transform_tables.h"

#include <algorithm>
#include <cmath>
#include <list>
#include <mutex>
#include <numbers>
#include <numeric>
#include <utility>

namespace {

void add_factor(transform_factors& factors, double angle)
{
    factors.re.push_back(std::cos(angle));
    factors.im.push_back(std::sin(angle));
}

// Where the value comes from that the bit reversal puts in each of the n places.
std::vector<int> reversed(int n)
{
    std::vector<int> order(static_cast<std::size_t>(n));
    std::iota(order.begin(), order.end(), 0);
    int j = 0;
    for (int i = 0; i < n; i++) {
        if (i < j)
            std::swap(order[static_cast<std::size_t>(i)], order[static_cast<std::size_t>(j)]);
        int m = n / 2;
        while (m > 0 && j > m - 1) {
            j -= m;
            m /= 2;
        }
        j += m;
    }
    return order;
}

// The loops end at n: in the last block of a stage they take the pairs whose first half begins before it.
// What was worked on behind n then stays as it is, unless there was nothing yet.
bool is_steady(int n)
{
    for (int m = 2; m < n; m *= 2) {
        const int rest = n % (2 * m);
        if (rest > 0 && rest < m)
            return false;
    }
    return n > 16; // the passes want 32 values at least
}

void make_passes(transform_tables& t)
{
    const double pi = std::numbers::pi;
    const int half = t.size / 2;
    for (int m = 4; 4 * m <= half; m *= 4)
        for (const int of : {2, 1, 3})
            for (int k = 0; k < m; k++)
                add_factor(t.pass, pi * of * k / (2 * m));
    for (int k = 0; k < half + 4; k++)
        add_factor(t.part, pi * k / half);
}

// In each half, the values of a group of four lie a quarter of the half apart: the first pass takes four
// groups at once.
void make_places(transform_tables& t)
{
    const int half = t.size / 2;
    const std::vector<int> order = reversed(t.n);
    t.place.resize(order.size());
    for (int i = 0; i < t.n; i++) {
        const int in_half = i % half;
        t.place[static_cast<std::size_t>(order[static_cast<std::size_t>(i)])] =
            i - in_half + in_half % 4 * (half / 4) + in_half / 4;
    }
}

transform_tables make(int n)
{
    transform_tables t{n, 1, {}, is_steady(n), {}, {}, {}};
    for (; t.size < n; t.size *= 2)
        for (int k = 0; k < t.size; k++)
            add_factor(t.stage, std::numbers::pi * k / t.size);
    if (t.steady) {
        make_places(t);
        make_passes(t);
    }
    return t;
}

} // namespace

std::shared_ptr<const transform_tables> transform_tables_of(int n)
{
    constexpr std::size_t most = 8; // a test may come with any length
    static std::mutex mutex;
    static std::list<std::shared_ptr<const transform_tables>> made;
    const std::lock_guard lock(mutex);
    const auto found = std::find_if(made.begin(), made.end(), [n](const auto& p) { return p->n == n; });
    if (found != made.end())
        return *found;
    if (made.size() == most)
        made.pop_front();
    return made.emplace_back(std::make_shared<const transform_tables>(make(n)));
}
