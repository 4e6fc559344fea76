"""A small world around the real Quillon.exe: a screen, a sound server, live feeds, a Wine prefix and a simulator.

Everything runs in a folder of its own and on loopback; World.close() stops what was started, by its process id.
"""
