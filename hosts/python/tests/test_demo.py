"""The demonstration runs the session of the document and leaves what it names."""

import os
import re
import subprocess
import sys
from pathlib import Path

import pytest

DEMO = Path(__file__).resolve().parents[1] / "demo.py"


@pytest.mark.slow
def test_demo(tmp_path):
    folder = tmp_path / "demo"
    for _ in range(2):  # again in the same folder, too
        run = subprocess.run([sys.executable, str(DEMO), str(folder)], capture_output=True, text=True,
                             env={**os.environ, "ZEL_CONFIG": ""})
        assert run.returncode == 0, run.stderr
    assert run.stdout.startswith(">>> import zelaccess as za, numpy as np\n>>> libs = za.Libraries(")
    assert "\n(351.39 K, 'K', 'crc.lb1:CRC')\n" in run.stdout
    assert "<Component ETHANOL, Ethanol, C2H6O, 64-17-5>" in run.stdout
    named = re.findall(r"^  (\S+\.(?:png|html|lb1))\b", run.stdout, re.MULTILINE)
    assert len(named) == 9
    for name in named:
        assert (folder / name).stat().st_size > 1000
    assert "azeotrope: 0.8799 mole fraction" in (folder / "tutorial" / "04_ethanol_water.txt").read_text()
