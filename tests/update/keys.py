"""Makes what the tests of the online update sign with, once: keys.py FOLDER.

authority.crt vouches for server.crt, stranger.crt for impostor.crt; all for localhost. update.pem signs version lists and
"public" is its public half in base64; other.pem is somebody else's key.
"""
import base64
import pathlib
import subprocess
import sys

FOLDER = pathlib.Path(sys.argv[1])


def openssl(*words):
    return subprocess.run(["openssl", *words], cwd=FOLDER, check=True, capture_output=True).stdout


def make_certificates(authority, server):
    lasting = ["-newkey", "rsa:2048", "-nodes", "-days", "3650"]
    openssl("req", "-x509", *lasting, "-subj", f"/CN=Pirol {authority}", "-keyout", f"{authority}.key", "-out", f"{authority}.crt")
    openssl("req", "-x509", *lasting, "-subj", "/CN=localhost", "-addext", "subjectAltName=DNS:localhost,IP:127.0.0.1",
            "-addext", "basicConstraints=critical,CA:FALSE", "-CA", f"{authority}.crt", "-CAkey", f"{authority}.key",
            "-keyout", f"{server}.key", "-out", f"{server}.crt")


if not (FOLDER / "public").exists():
    FOLDER.mkdir(parents=True, exist_ok=True)
    make_certificates("authority", "server")
    make_certificates("stranger", "impostor")
    for key in "update.pem", "other.pem":
        openssl("genpkey", "-algorithm", "ed25519", "-out", key)
    public = openssl("pkey", "-in", "update.pem", "-pubout", "-outform", "DER")[-32:]
    (FOLDER / "public").write_text(base64.b64encode(public).decode())
