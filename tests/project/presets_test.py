"""What the presets promise, and what a build without them does not ask for."""

import json
import pathlib
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
PRESETS = {
    preset["name"]: preset
    for preset in json.loads((ROOT / "CMakePresets.json").read_text("utf-8"))["configurePresets"]
}


def variables(name):
    """The cache variables of a preset, inherited ones included."""
    preset = PRESETS[name]
    inherited = variables(preset["inherits"]) if "inherits" in preset else {}
    return inherited | preset.get("cacheVariables", {})


class Presets(unittest.TestCase):
    def test_warnings_are_errors(self):
        for name in PRESETS:
            with self.subTest(preset=name):
                self.assertEqual(variables(name)["OV_WARNINGS_AS_ERRORS"], "ON")

    def test_what_is_tested_is_optimised_as_what_ships_and_asserts(self):
        self.assertNotIn("CMAKE_CXX_FLAGS_RELEASE", variables("release"))
        differences = {
            key: value
            for key, value in variables("optimised").items()
            if variables("release").get(key) != value and not key.startswith("OV_")
        }
        self.assertEqual(differences, {"CMAKE_CXX_FLAGS_RELEASE": "-O3 -D_GLIBCXX_ASSERTIONS"})


class WithoutPresets(unittest.TestCase):
    """What a packager does: cmake -B build, with a build type or none."""

    def configured(self, *options):
        folder = self.enterContext(tempfile.TemporaryDirectory())
        subprocess.run(
            ["cmake", "-S", ROOT, "-B", folder, "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON", "-DOV_BUILD_TESTS=OFF"]
            + list(options),
            stdout=subprocess.DEVNULL,
            check=True,
        )
        return pathlib.Path(folder)

    def test_warnings_are_no_errors(self):
        folder = self.configured("-DCMAKE_BUILD_TYPE=Release")
        commands = (folder / "compile_commands.json").read_text("utf-8")
        self.assertIn("-O3 -DNDEBUG", commands)
        self.assertIn("-Wall", commands)
        self.assertNotIn("-Werror", commands)


if __name__ == "__main__":
    unittest.main()
