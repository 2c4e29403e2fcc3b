#!/usr/bin/env python3
"""Makes one identity bundle per serial number read from standard input."""
import sys

for line in sys.stdin:
    print(f"bundle {line.strip()}")
