// Draws the pictures of docs/conventions.md and docs/guides/recipes.md, or compares those that stand there with what the library draws
// now.
//
// Usage: vexor_pictures [--compare] FOLDER        FOLDER is docs/pictures/
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "Pictures.h"

namespace {

struct Picture {
    char const* name;
    std::string (*draw)();
};

Picture const pictures[] = {
    {"active-rotation", ActiveRotation},
    {"product-order", ProductOrder},
    {"rows-and-columns", RowsAndColumns},
    {"euler-order", EulerOrder},
    {"axis-and-angle", AxisAndAngle},
    {"rotation-about-a-line", RotationAboutALine},
    {"points-and-vectors", PointsAndVectors},
    {"recipe-plane", RecipePlane},
    {"recipe-frame", RecipeFrame},
    {"recipe-solve", RecipeSolve},
    {"recipe-align", RecipeAlign},
    {"recipe-drift", RecipeDrift},
    {"example-regression", ExampleRegression},
    {"example-turning-body", ExampleTurningBody},
};

bool IsCurrent(std::string const& path, std::string const& text)
{
    std::ifstream file(path, std::ios::binary);
    std::string const found((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    return found == text;
}

bool Write(std::string const& path, std::string const& text)
{
    std::ofstream file(path, std::ios::binary);
    file << text << std::flush;
    return static_cast<bool>(file);
}

} // namespace

int main(int argc, char** argv)
{
    bool const compare = argc == 3 && std::string(argv[1]) == "--compare";
    if (argc != 2 && !compare) {
        std::fprintf(stderr, "usage: vexor_pictures [--compare] FOLDER\n");
        return 2;
    }

    bool good = true;
    for (Picture const& picture : pictures) {
        std::string const path = std::string(argv[argc - 1]) + "/" + picture.name + ".svg";
        if (compare ? IsCurrent(path, picture.draw()) : Write(path, picture.draw()))
            continue;
        std::fprintf(stderr, compare ? "%s is not what the library draws now\n" : "cannot write %s\n",
                     path.c_str());
        good = false;
    }
    if (good)
        std::puts(compare ? "all pictures are current" : "all pictures written");
    return good ? 0 : 1;
}
