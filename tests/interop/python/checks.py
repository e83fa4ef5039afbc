"""What the clients in Python share."""
import sys


def expect(holds, what):
    if not holds:
        sys.exit("expected " + what)
