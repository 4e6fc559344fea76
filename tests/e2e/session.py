"""What the end-to-end tests share. Each class has a world of its own; numbered tests are steps that build on each other."""
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts"))
from world.world import World


class Session(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.world = World()
        cls.addClassCleanup(cls.world.close)
        cls.data, cls.copilot, cls.ear = cls.world.data, cls.world.copilot, cls.world.ear

    @classmethod
    def start(cls, *options):
        cls.world.start_simulator(*options)
        cls.world.start_quillon()

    def end_quillon(self):
        self.assertEqual(self.world.close_quillon(), 0)
