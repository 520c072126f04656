"""What scripts/bench measures: databases, runs, instructions, handle settings, and their tables."""
