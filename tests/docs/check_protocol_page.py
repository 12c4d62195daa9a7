"""Decodes the frames of the examples in docs/signal-service-protocol.md and compares what they say.

Usage: check_protocol_page.py PAGE PROTO [PROTOC]. A frame is a line with an arrow; its message follows, further in.
"""
import os
import re
import subprocess
import sys

page, proto, protoc = (sys.argv[1:] + ["protoc"])[:3]
messages = {"->": "SignalService.RequestMessage", "<-": "SignalService.ResponseMessage"}


def decode(message, content):
    command = [protoc, "--decode=" + message, "--proto_path=" + os.path.dirname(proto), proto]
    return subprocess.run(command, input=content, capture_output=True, check=True).stdout.decode().strip()


with open(page, encoding="utf-8") as file:
    examples = re.findall(r"^    (->|<-) ([0-9a-f ]+)\n((?:       .+\n)+)", file.read(), re.MULTILINE)
wrong = 0
for arrow, digits, text in examples:
    frame = bytes.fromhex(digits)
    told = "\n".join(line.strip() for line in text.splitlines())
    if frame[0] != len(frame) - 1 or decode(messages[arrow], frame[1:]) != told:
        print("Not what it says:", arrow, digits, told, sep="\n")
        wrong += 1
print(len(examples), "examples,", wrong, "wrong")
sys.exit(wrong > 0 or not examples)
