"""The disposable server's end of a test's conversation: a shell command as one JSON line in, its result as one line out."""
import json
import subprocess
import sys

for line in sys.stdin:
    done = subprocess.run(["/bin/bash", "-c", json.loads(line)], capture_output=True, text=True,
                          stdin=subprocess.DEVNULL, check=False)
    print(json.dumps([done.returncode, done.stdout, done.stderr]), flush=True)
