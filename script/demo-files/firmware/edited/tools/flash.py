#!/usr/bin/env python3
"""Writes an image to the device on the given port."""
import argparse
import serial


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("image")
    parser.add_argument("--port", default="/dev/ttyACM0")
    parser.add_argument("--baud", type=int, default=921600)
    options = parser.parse_args()
    with serial.Serial(options.port, options.baud) as port, open(options.image, "rb") as image:
        port.write(image.read())


if __name__ == "__main__":
    main()
