// The tables of the transform: made once for each length; those of the last few lengths are kept.
#pragma once

#include <memory>
#include <vector>

// Complex factors, real and imaginary parts apart.
struct transform_factors {
    std::vector<double> re;
    std::vector<double> im;
};

struct transform_tables {
    int n;
    int size;                // the power of two up to which the loops work
    transform_factors stage; // of each stage m = 1, 2, 4 ..., m factors behind one another
    bool steady;             // no stage passes over a pair that the exact transform of `size` would take
    // For a steady length, the transform of size/2 complex values: where each of the n values goes before the
    // first pass; the factors of each pass that does two stages at once, three for each place; those that
    // part the even and the odd values, with room for whole groups of four.
    std::vector<int> place;
    transform_factors pass;
    transform_factors part;
};

// Any thread.
std::shared_ptr<const transform_tables> transform_tables_of(int n);
