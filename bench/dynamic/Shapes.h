#pragma once
#include <string>
#include <vector>

// The sizes at which every library is timed.

namespace bench {

struct ProductShape {
    int rows;
    int columns;
    int inner;

    std::string Name() const
    {
        if (rows == columns && columns == inner)
            return std::to_string(rows);
        return std::to_string(rows) + "x" + std::to_string(inner) + "x" + std::to_string(columns);
    }
};

/// Squares first, then tall, wide and long ones and an outer product.
inline std::vector<ProductShape> const productShapes = {
    {2, 2, 2},       {3, 3, 3},        {4, 4, 4},          {8, 8, 8},       {16, 16, 16},
    {31, 31, 31},    {32, 32, 32},     {64, 64, 64},       {100, 100, 100}, {128, 128, 128},
    {256, 256, 256}, {512, 512, 512},  {1024, 1024, 1024}, {2000, 20, 20},  {20, 2000, 20},
    {20, 20, 2000},  {1000, 10, 1000}, {10, 1000, 1000},   {1000, 1000, 1}};

inline std::vector<int> const vectorSizes = {2, 4, 8, 16, 32, 64, 128, 256, 512, 1024, 2048};
inline std::vector<int> const transposeSizes = {4, 8, 16, 32, 64, 100, 128, 256, 500, 512, 1000, 1024, 1025};
inline std::vector<int> const sumSizes = {16, 256, 1000, 10000};
inline std::vector<int> const driverSizes = {4, 16, 64, 256};

} // namespace bench
