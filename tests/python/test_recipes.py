"""The recipes of docs/guides/from-python.md print what the page shows, and draw its pictures."""

import pathlib
import subprocess
import sys

docs = pathlib.Path(__file__).resolve().parent.parent.parent / "docs"


def test_recipes(tmp_path):
    run = subprocess.run([sys.executable, str(docs / "snippets/from_python.py"), str(tmp_path)], capture_output=True, text=True, timeout=300)
    assert run.returncode == 0, run.stderr
    assert run.stdout == (docs / "snippets/from_python.out").read_text()
    orientation = run.stdout.splitlines()[2]
    assert run.stdout.splitlines()[3] == "orientation " + orientation  # the bits of the C++ example
    drawn = sorted(tmp_path.iterdir())
    assert len(drawn) == 2
    for picture in drawn:
        assert picture.read_bytes() == (docs / "pictures" / picture.name).read_bytes(), picture.name
