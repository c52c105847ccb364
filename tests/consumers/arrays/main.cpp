#include <vexor/arrays/Arrays.h>

#include <cstdio>
#include <vector>

// Normalises an array through the installed component and counts the differences from the member.
int main()
{
    std::vector<Vec3Dbl> vectors;
    for (int i = 0; i < 100; ++i)
        vectors.emplace_back(1.0 + i, 2.0 - i, 0.5);
    std::vector<Vec3Dbl> results(vectors.size());
    vexor::arrays::Normalize(vectors, results);
    int wrong = 0;
    for (std::size_t i = 0; i < vectors.size(); ++i)
        wrong += results[i] != vectors[i].GetNormalizedCopy();
    std::printf("%d wrong\n", wrong);
    return wrong != 0;
}
