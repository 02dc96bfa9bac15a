"""The parts of scripts/seed-mistakes."""
