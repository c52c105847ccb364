#pragma once
#include <string>

/// The pictures of the page "Conventions", each the whole text of an SVG file. Every position and every
/// number in them is computed by the library.
std::string ActiveRotation();
std::string ProductOrder();
std::string RowsAndColumns();
std::string EulerOrder();
std::string AxisAndAngle();
std::string RotationAboutALine();
std::string PointsAndVectors();
