#pragma once
#include <string>

/// Wide for a page on a screen, or narrow for one on a phone, with letters of at least 14 on a width of 440.
enum class Format { Wide, Narrow };

/// The pictures of the pages "Conventions" and "Recipes", each the whole text of an SVG file. Every position and every
/// number in them is computed by the library.
std::string ActiveRotation(Format format);
std::string ProductOrder(Format format);
std::string RowsAndColumns(Format format);
std::string EulerOrder(Format format);
std::string AxisAndAngle(Format format);
std::string RotationAboutALine(Format format);
std::string PointsAndVectors(Format format);

std::string RecipePlane();
std::string RecipeFrame();
std::string RecipeSolve();
std::string RecipeAlign();
std::string RecipeDrift();

/// Pictures of example programs.
std::string ExampleRegression();
std::string ExampleTurningBody();
