#!/usr/bin/env python3
"""Writes an image to the device on the given port."""
import argparse
import serial


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("image")
    parser.add_argument("--port", default="/dev/ttyUSB0")
    options = parser.parse_args()
    with serial.Serial(options.port, 115200) as port, open(options.image, "rb") as image:
        while block := image.read(4096):
            port.write(block)
            print(f"{image.tell()} bytes written", end="\r")


if __name__ == "__main__":
    main()
