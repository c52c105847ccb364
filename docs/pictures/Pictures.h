#pragma once
#include <string>

/// The pictures of the pages "Conventions" and "Recipes", each the whole text of an SVG file. Every position and every
/// number in them is computed by the library.
std::string ActiveRotation();
std::string ProductOrder();
std::string RowsAndColumns();
std::string EulerOrder();
std::string AxisAndAngle();
std::string RotationAboutALine();
std::string PointsAndVectors();

std::string RecipePlane();
std::string RecipeFrame();
std::string RecipeSolve();
std::string RecipeAlign();
std::string RecipeDrift();

/// Pictures of example programs.
std::string ExampleRegression();
std::string ExampleTurningBody();
