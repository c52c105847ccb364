// Computes the normals of a point cloud, compares them with the scan's own, and gives them one side of the surface.
//
//   normals CLOUD.ply --cloud NORMALS.ply --picture PICTURE.svg

#include "common/Program.h"
#include "normals/Run.h"

int main(int argumentCount, char** arguments)
{
    return examples::RunProgram("normals", [&] {
        examples::Alone team;
        return examples::RunNormals(std::vector<std::string>(arguments + 1, arguments + argumentCount), team);
    });
}
