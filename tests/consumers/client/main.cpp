#include "Client.h"

#include <cstdio>

int main()
{
    int const wrong = CountWrongAnswers();
    std::printf("%d wrong, hash %016llx\n", wrong, HashOfInlinedResults());
    return wrong != 0;
}
