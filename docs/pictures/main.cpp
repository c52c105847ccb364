// Draws the pictures of docs/conventions.md and docs/guides/recipes.md, or compares those that stand there with what the library draws
// now.
//
// Usage: vexor_pictures [--compare] FOLDER        FOLDER is docs/pictures/
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "Pictures.h"

namespace {

struct Picture {
    std::string name;
    std::string text;
};

std::vector<Picture> Pictures()
{
    std::vector<Picture> pictures = {
        {"recipe-plane", RecipePlane()},
        {"recipe-frame", RecipeFrame()},
        {"recipe-solve", RecipeSolve()},
        {"recipe-align", RecipeAlign()},
        {"recipe-drift", RecipeDrift()},
        {"example-regression", ExampleRegression()},
        {"example-turning-body", ExampleTurningBody()},
    };
    for (Format const format : {Format::Wide, Format::Narrow}) {
        std::string const suffix = format == Format::Narrow ? "-narrow" : "";
        pictures.push_back({"active-rotation" + suffix, ActiveRotation(format)});
        pictures.push_back({"product-order" + suffix, ProductOrder(format)});
        pictures.push_back({"rows-and-columns" + suffix, RowsAndColumns(format)});
        pictures.push_back({"euler-order" + suffix, EulerOrder(format)});
        pictures.push_back({"axis-and-angle" + suffix, AxisAndAngle(format)});
        pictures.push_back({"rotation-about-a-line" + suffix, RotationAboutALine(format)});
        pictures.push_back({"points-and-vectors" + suffix, PointsAndVectors(format)});
    }
    return pictures;
}

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
    for (Picture const& picture : Pictures()) {
        std::string const path = std::string(argv[argc - 1]) + "/" + picture.name + ".svg";
        if (compare ? IsCurrent(path, picture.text) : Write(path, picture.text))
            continue;
        std::fprintf(stderr, compare ? "%s is not what the library draws now\n" : "cannot write %s\n",
                     path.c_str());
        good = false;
    }
    if (good)
        std::puts(compare ? "all pictures are current" : "all pictures written");
    return good ? 0 : 1;
}
