#include <vexor/extras/hash.h>
#include <vexor/points/Pnt3Dbl.h>

#include <cstdio>
#include <unordered_map>
#include <vector>

int main()
{
    // Gives each distinct corner of a list of triangles a number.
    std::vector<Pnt3Dbl> const corners = {Pnt3Dbl(0, 0, 0), Pnt3Dbl(1, 0, 0), Pnt3Dbl(0, 1, 0),
                                          Pnt3Dbl(1, 0, 0), Pnt3Dbl(1, 1, 0), Pnt3Dbl(-0.0, 1, 0)};
    std::unordered_map<Pnt3Dbl, std::size_t> numbers;
    for (Pnt3Dbl const& corner : corners)
        std::printf("%zu ", numbers.try_emplace(corner, numbers.size()).first->second);
    std::printf("\n%zu vertices\n", numbers.size());
}
