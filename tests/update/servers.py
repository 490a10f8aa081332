#!/usr/bin/env python3
"""Servers of the transfer tests, on free ports of the loopback: web, files, a proxy that wants a password, and the web
again with TLS and a certificate that nobody vouches for unless it is told to.

Usage: servers.py FOLDER. All serve FOLDER. Prints "{web} {ftp} {proxy} {tls}", the ports, when all of them answer, and
runs until nobody reads its output any more. The web server's requests are noted in FOLDER/requests.txt.
"""
import logging
import os
import select
import socket
import ssl
import struct
import subprocess
import sys
import threading
from socketserver import StreamRequestHandler, ThreadingTCPServer
from urllib.parse import unquote

from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.handlers import FTPHandler
from pyftpdlib.servers import ThreadedFTPServer

logging.disable()
folder = os.path.realpath(sys.argv[1])
ended = threading.Event()


def served(name):
    with open(os.path.join(folder, name), "rb") as file:
        return file.read()


class Web(StreamRequestHandler):
    """Answers by the first part of the path: /sized/NAME, /unsized/NAME, /redirect/ADDRESS and so on."""

    def head(self, status="200 OK", *fields):
        self.wfile.write("\r\n".join(["HTTP/1.1 " + status, "Connection: close", *fields, "", ""]).encode())

    def sized(self, data):
        self.head("200 OK", f"Content-Length: {len(data)}")
        self.wfile.write(data)

    def handle(self):
        words = self.rfile.readline().decode().split()
        if len(words) < 2:
            return
        headers = []
        while (line := self.rfile.readline().strip()):
            headers.append(line.decode())
        with open(os.path.join(folder, "requests.txt"), "a", encoding="ascii") as log:
            log.write(" ".join([words[1], *headers]) + "\n")
        path = words[1]
        if "://" in path:  # from the proxy
            path = "/" + path.split("/", 3)[3]
        kind, _, rest = path[1:].partition("/")
        try:
            self.answer(kind, unquote(rest))
        except (BrokenPipeError, ConnectionResetError):
            pass

    def answer(self, kind, rest):
        if kind == "sized":
            self.sized(served(rest))
        elif kind == "unsized":
            self.head()
            self.wfile.write(served(rest))
        elif kind in ("slow", "drip"):  # in pieces, each a moment after the other
            data = served(rest)
            size = 1500 if kind == "slow" else 4
            self.head("200 OK", f"Content-Length: {len(data)}")
            for begin in range(0, len(data), size):
                self.wfile.write(data[begin:begin + size])
                ended.wait(0.01)
        elif kind in ("reset", "short"):  # dies in mid-body
            data = served(rest)
            self.head("200 OK", f"Content-Length: {len(data)}")
            self.wfile.write(data[:len(data) // 2])
            if kind == "reset":
                self.request.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
                self.request.close()
        elif kind == "stall":  # never ends
            self.head("200 OK", "Content-Length: 5000")
            self.wfile.write(b"x" * 2048)
            ended.wait()
        elif kind == "silent":
            ended.wait()
        elif kind == "redirect":
            self.head("302 Found", "Location: " + rest, "Content-Length: 0")
        elif kind == "loop":
            self.head("302 Found", "Location: /loop", "Content-Length: 0")
        elif kind != "nothing":
            page = b"<HTML><BODY>404 Not Found</BODY></HTML>"
            self.head("404 Not Found", f"Content-Length: {len(page)}")
            self.wfile.write(page)


class WebServer(ThreadingTCPServer):
    daemon_threads = True

    def handle_error(self, request, client_address):
        pass  # clients of these tests hang up when they like


class FileHandler(FTPHandler):
    authorizer = DummyAuthorizer()
    auth_failed_timeout = 0

    def log(self, *_args, **_keywords):
        pass

    logline = logerror = log


def start_proxy():
    """A port that was free a moment ago may be taken: then the next one."""
    while True:
        with socket.socket() as probe:
            probe.bind(("127.0.0.1", 0))
            port = probe.getsockname()[1]
        configuration = os.path.join(folder, "tinyproxy.conf")
        with open(configuration, "w", encoding="ascii") as file:
            file.write(f"Port {port}\nListen 127.0.0.1\nAllow 127.0.0.1\nTimeout 30\nMaxClients 10\n"
                       "BasicAuth vera geheim\n")
        proxy = subprocess.Popen(["tinyproxy", "-d", "-c", configuration], stdin=subprocess.DEVNULL,
                                 stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        while proxy.poll() is None:
            try:
                socket.create_connection(("127.0.0.1", port)).close()
                return proxy, port
            except ConnectionRefusedError:
                ended.wait(0.01)


def start_tls():
    key, certificate = (os.path.join(folder, name) for name in ("key.pem", "certificate.pem"))
    subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes",
                    "-subj", "/CN=127.0.0.1", "-addext", "subjectAltName=IP:127.0.0.1",
                    "-keyout", key, "-out", certificate],
                   check=True, stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(certificate, key)
    server = WebServer(("127.0.0.1", 0), Web)
    server.socket = context.wrap_socket(server.socket, server_side=True)
    return server


def main():
    web = WebServer(("127.0.0.1", 0), Web)
    FileHandler.authorizer.add_anonymous(folder)
    FileHandler.authorizer.add_user("vera", "geheim", folder)
    files = ThreadedFTPServer(("127.0.0.1", 0), FileHandler)
    tls = start_tls()
    for server in (web, files, tls):
        threading.Thread(target=server.serve_forever, daemon=True).start()
    proxy, proxy_port = start_proxy()
    try:
        print(web.server_address[1], files.socket.getsockname()[1], proxy_port, tls.server_address[1], flush=True)
        output = select.poll()
        output.register(sys.stdout, 0)  # tells when nobody reads it any more
        output.poll()
    finally:
        proxy.kill()
        proxy.wait()
        os._exit(0)


main()
