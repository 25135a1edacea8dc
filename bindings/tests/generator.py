"""The generator notices whatever its tables do not place, and whatever a release would break."""

from __future__ import annotations

import copy
import json
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path
from typing import Any

REPOSITORY = Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(REPOSITORY / "bindings"))

from generator import api, compare, header  # noqa: E402


class Header(unittest.TestCase):
    """Each test changes a copy of the headers in one place."""

    def setUp(self) -> None:
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        self.directory = Path(place.name)
        for name in ("kvsignpadsdk_global.h", "kvsignpadsdk.h"):
            shutil.copy(REPOSITORY / "kvsignpadsdk" / name, self.directory)

    def describe(self) -> dict[str, Any]:
        declared = header.read(self.directory / "kvsignpadsdk_global.h")
        return api.describe(declared, REPOSITORY / "CMakeLists.txt")

    def change(self, file: str, old: str, new: str) -> None:
        path = self.directory / file
        text = path.read_text(encoding="utf-8")
        self.assertIn(old, text)
        path.write_text(text.replace(old, new), encoding="utf-8")

    def refused(self, words: str) -> None:
        with self.assertRaisesRegex((api.UnplacedError, header.HeaderError), words):
            self.describe()

    def test_whole(self) -> None:
        described = self.describe()
        self.assertEqual(len(described["operations"]), 38)
        self.assertEqual(sum(len(operation["families"]) for operation in described["operations"]), 156)
        self.assertEqual({r["name"]: r["size"] for r in described["records"]}["_POINTDATA"], 24)

    def test_new_function(self) -> None:
        self.change("kvsignpadsdk.h", "// --- About ---", "/// New.\nKVSIGNPADSDK_EXPORT int KVS300_New(int nDeviceType);")
        self.refused("operations in the header that meanings.py does not place: .*New")

    def test_function_of_no_family(self) -> None:
        self.change("kvsignpadsdk.h", "// --- About ---", "int standalone(void);")
        self.refused("standalone belongs to no family")

    def test_missing_function(self) -> None:
        self.change("kvsignpadsdk.h", "bool KVS210_InitialWPSSignCanvas(", "bool KVS210_InitialWPSSignSheet(")
        self.refused("InitialWPSSign")

    def test_new_value(self) -> None:
        self.change("kvsignpadsdk_global.h", "ITI_SVG = 8", "ITI_SVG = 8, ITI_TIFF = 9")
        self.refused("values of IMAGE_TYPE_ID .*ITI_TIFF")

    def test_new_enumeration(self) -> None:
        self.change("kvsignpadsdk_global.h", "/// State of the pen", "enum NEW_ID { NEW_ONE = 1 };\n/// State of the pen")
        self.refused("enumerations .*NEW_ID")

    def test_new_parameter(self) -> None:
        self.change("kvsignpadsdk.h", "_SetPenWidth(int nDeviceType, int nPenWidth)", "_SetPenWidth(int nDeviceType, int nPenWidth, int nMore)")
        self.refused("parameters of SetPenWidth .*nMore")

    def test_other_type(self) -> None:
        self.change("kvsignpadsdk.h", "_SetPenWidth(int nDeviceType, int nPenWidth)", "_SetPenWidth(int nDeviceType, double nPenWidth)")
        self.refused("nPenWidth is a double")

    def test_families_that_differ(self) -> None:
        self.change("kvsignpadsdk.h", "KVS300_Clear(int nDeviceType)", "KVS300_Clear(int nDeviceType, int nMore)")
        self.refused("KVS300_Clear has other parameters")

    def test_other_result(self) -> None:
        for family in ("KVS210", "KVS300", "KVS310X"):
            self.change("kvsignpadsdk.h", f"int {family}_OpenLCD(", f"bool {family}_OpenLCD(")
        self.refused("OpenLCD answers a bool")

    def test_unknown_field(self) -> None:
        self.change("kvsignpadsdk_global.h", "time_t pointTime;", "long double pointTime;")
        self.refused("pointTime has the type long double")

    def test_header_that_does_not_compile(self) -> None:
        self.change("kvsignpadsdk.h", "// --- About ---", "int (;")
        self.refused("does not compile")


class Release(unittest.TestCase):
    def setUp(self) -> None:
        self.released = json.loads((REPOSITORY / "bindings" / "released.json").read_text(encoding="utf-8"))
        self.today = copy.deepcopy(self.released)

    def broken(self) -> str:
        return "\n".join(compare.broken(self.released, self.today))

    def test_same_and_more(self) -> None:
        more = copy.deepcopy(self.today["operations"][0])
        more["name"] = "More"
        self.today["operations"].append(more)
        self.assertEqual(self.broken(), "")

    def test_removed_operation(self) -> None:
        name = self.today["operations"].pop(3)["name"]
        self.assertIn(f"{name} is gone", self.broken())

    def test_removed_family(self) -> None:
        self.today["operations"][0]["families"].remove("KVS300")
        self.assertIn("KVS300 no longer has it", self.broken())

    def test_changed_value(self) -> None:
        self.today["enumerations"][0]["values"][0]["value"] = 17
        self.assertIn("its value was 0 and is 17", self.broken())

    def test_changed_field_order(self) -> None:
        self.today["records"][0]["fields"].reverse()
        self.assertIn("its fields were", self.broken())

    def test_changed_result(self) -> None:
        self.today["operations"][0]["result"]["type"] = "int"
        self.assertIn("its type was 'bool' and is 'int'", self.broken())

    def test_major_version(self) -> None:
        self.today["operations"].clear()
        self.today["version"] = "2.0.0.0"
        self.assertEqual(self.broken(), "")


class Command(unittest.TestCase):
    def test_what_is_committed_is_what_the_header_says(self) -> None:
        done = subprocess.run([str(REPOSITORY / "bindings" / "generate"), "--check"], capture_output=True, text=True)
        self.assertEqual((done.returncode, done.stderr), (0, ""))


if __name__ == "__main__":
    unittest.main()
