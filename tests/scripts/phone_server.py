#!/usr/bin/python3
"""A phone's SSH server, on a loopback port of this machine: it speaks what old phones speak and nothing newer.

Usage: phone_server.py FOLDER. FOLDER/bin has the phone's own commands, which go before this machine's; the paths of the
phone that script/install uses lie in FOLDER. The server makes its keys and the user's there (host_key.pub, user_key),
writes FOLDER/port when it listens, and ends when its standard input does.
"""
import asyncio
import os
import pathlib
import sys
import warnings

warnings.simplefilter("ignore")  # of old ciphers, which are wanted here
import asyncssh  # noqa: E402

FOLDER = pathlib.Path(sys.argv[1])
PLACES = ["/tmp/", "/Applications/", "/System/", "/var/jb"]


async def serve(process):
    command = process.command or ""
    for place in PLACES:
        command = command.replace(place, f"{FOLDER}{place}")
    with open(FOLDER / "commands", "a", encoding="utf-8") as commands:
        commands.write(command + "\n")
    given = await process.stdin.read() if command.startswith("cat >") else b""
    shell = await asyncio.create_subprocess_exec(
        "/bin/sh", "-c", command, stdin=asyncio.subprocess.PIPE, stdout=asyncio.subprocess.PIPE,
        stderr=asyncio.subprocess.PIPE, env={"PATH": f"{FOLDER}/bin:/usr/bin:/bin", "FOLDER": str(FOLDER)})
    output, errors = await shell.communicate(given)
    process.stdout.write(output)
    process.stderr.write(errors)
    process.exit(shell.returncode)


async def main():
    host, user = (asyncssh.generate_private_key("ssh-rsa", key_size=2048) for _ in range(2))
    host.write_public_key(FOLDER / "host_key.pub")
    user.write_private_key(FOLDER / "user_key")
    os.chmod(FOLDER / "user_key", 0o600)
    user.write_public_key(FOLDER / "authorized_keys")
    host_keys = asyncssh.load_keypairs(host)
    for key in host_keys:  # with SHA-1 alone, as before OpenSSH 7.2
        key.sig_algorithms = key.host_key_algorithms = (b"ssh-rsa",)
    server = await asyncssh.listen(
        "127.0.0.1", 0, server_host_keys=host_keys, authorized_client_keys=str(FOLDER / "authorized_keys"),
        process_factory=serve, encoding=None,
        kex_algs=["diffie-hellman-group1-sha1"], encryption_algs=["aes128-cbc"], mac_algs=["hmac-sha1"],
        signature_algs=["ssh-rsa"])
    part = FOLDER / "port.part"
    part.write_text(str(server.sockets[0].getsockname()[1]))
    part.rename(FOLDER / "port")
    await asyncio.get_event_loop().run_in_executor(None, sys.stdin.read)


asyncio.run(main())
