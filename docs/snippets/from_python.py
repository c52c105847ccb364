"""The recipes of docs/guides/from-python.md. Usage: from_python.py FOLDER-OF-PICTURES"""

import pathlib
import sys

import numpy

root = pathlib.Path(__file__).resolve().parent.parent.parent
pictures = pathlib.Path(sys.argv[1])


def draw(name, points, values, least, greatest):
    """An SVG of dots in eight colours, from blue for the least value to red for the greatest."""
    low, high = points.min(axis=0), points.max(axis=0)
    x, y = (600 * (points - low) / (high - low).max()).T
    height = y.max() + 20
    shades = numpy.clip(8 * (values - least) / (greatest - least), 0, 7).astype(int)
    lines = ['<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 620 %.0f" stroke-width="4" stroke-linecap="round">' % height]
    for shade in range(8):
        dots = "".join("M%d %dh0" % (10 + x[k], height - 10 - y[k]) for k in numpy.flatnonzero(shades == shade))
        lines.append('<path stroke="rgb(%d,90,%d)" d="%s"/>' % (36 * shade, 36 * (7 - shade), dots))
    (pictures / name).write_text("\n".join(lines + ["</svg>\n"]))


# [align]
from vexor import AffMat3Dbl, MatDbl, Pnt3Dbl, Quaternion, Vec3Dbl, arrays

draws = numpy.random.default_rng(5)
cloud = draws.uniform(-1, 1, (1000, 3))
turn = Quaternion(Vec3Dbl(1, 2, 2), 0.7, 1)
moved = arrays.Add(arrays.RotatePoint(turn, cloud), Vec3Dbl(3, 4, 5))


def align(source, target):
    """The rotation and the translation that move the source onto the target (Horn 1987)."""
    a, b = arrays.Centroid(source), arrays.Centroid(target)
    p, q = arrays.Subtract(source, a), arrays.Subtract(target, b)
    (xx, xy, xz), (yx, yy, yz), (zx, zy, zz) = p.T @ q
    horn = MatDbl([[xx - yy - zz, xy + yx, zx + xz, yz - zy],
                   [xy + yx, yy - xx - zz, yz + zy, zx - xz],
                   [zx + xz, yz + zy, zz - xx - yy, xy - yx],
                   [yz - zy, zx - xz, xy - yx, xx + yy + zz]])
    horn.EigenSym(1, 0, 3)  # the rows become the vectors, that of the largest value last
    u, v, w, s = horn.GetRow(3)
    found = Quaternion().SetValue(u, v, w, s, 1)
    return found, b - found.RotatePoint(a)


found, shift = align(cloud, moved)
print("angle %.6f, translation (%.6f, %.6f, %.6f)" % (found.GetAbsoluteAngle(), *shift))
# [align]

# [plane]
scan = numpy.loadtxt(root / "examples/data/pond/pond.xyz")[:, :3]
ground = scan[scan[:, 1] < numpy.median(scan[:, 1])]  # y points upwards

centre = arrays.Centroid(ground)
axes = arrays.Covariance(ground)
axes.EigenSym(1)  # ascending: row 0 is the direction of least extent
normal = Vec3Dbl(axes.GetRow(0))
normal = normal if normal.y > 0 else -normal
deviations = arrays.Dot(arrays.Subtract(ground, centre), normal)
print("%d points, root mean square deviation %.4f" % (len(ground), numpy.sqrt(numpy.mean(deviations**2))))
draw("from-python-plane.svg", ground[:, [0, 2]], deviations, -0.08, 0.08)
# [plane]

# [body]
inertia, step = Vec3Dbl(1, 2, 3), 0.01


def acceleration(w):
    return Vec3Dbl((inertia.y - inertia.z) * (w.y * w.z), (inertia.z - inertia.x) * (w.z * w.x),
                   (inertia.x - inertia.y) * (w.x * w.y)).ElemDiv(inertia)


def advanced(w):
    """One step of the classical Runge-Kutta method."""
    a = acceleration(w)
    b = acceleration(w + (0.5 * step) * a)
    c = acceleration(w + (0.5 * step) * b)
    d = acceleration(w + step * c)
    return w + (step / 6.0) * (((a + 2.0 * b) + 2.0 * c) + d)


velocity, orientation = Vec3Dbl(0.001, 2.0, 0.001), Quaternion()
for _ in range(100000):
    axis, angle = velocity.GetNormalizedCopy(), velocity.Length() * step
    orientation = orientation * Quaternion(axis, angle, 0)
    orientation.Normalize()
    velocity = advanced(velocity)
print(numpy.asarray(orientation).astype(">f8").tobytes().hex(" ", 8))
printed = (root / "examples/turning_body/bits.txt").read_text().split("\n")[1]  # by the C++ example
print(printed[:printed.index("  (")])
# [body]

# [normals]
normals = numpy.empty((len(scan), 3, 3))
for k, point in enumerate(scan):
    near = scan[numpy.argsort(arrays.DistanceSqTo(scan, point), kind="stable")[:12]]
    normals[k] = arrays.Covariance(near)
values, vectors = arrays.EigenSym(normals)
normals = vectors[:, 0]  # row 0 of each: the direction of least extent
steepness = 1 - numpy.abs(normals[:, 1])
print("%.0f %% of the scan are steeper than 45 degrees" % (100 * numpy.mean(steepness > 1 - numpy.sqrt(0.5))))
draw("from-python-normals.svg", scan[:, [0, 2]], steepness, 0, 1)
# [normals]

# [squares]
from vexor import VecDbl

t = numpy.linspace(0, 1, 50)
design = numpy.asfortranarray(numpy.stack([numpy.ones(50), t, t * t], axis=1))
first, second = VecDbl(1 + 2 * t - 3 * t * t), VecDbl(numpy.exp(t))

model = MatDbl(design)  # a copy: the solution overwrites the matrix
print("1 + 2t - 3t^2: %.6f %.6f %.6f" % tuple(model.SolveLinearLeastSquares(first)))

view = MatDbl(50, 3, design)  # shares the array's memory
transposed = view.GetTransposedCopy()
equations = transposed * view
equations.SolveSym(transposed * first)  # factorises once
print("exp:           %.6f %.6f %.6f" % tuple(equations.ReSolveSym(transposed * second)))
# [squares]
