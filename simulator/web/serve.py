#!/usr/bin/env python3
"""Serves the pages under a folder on the loopback address, with the two headers a page needs
for shared memory (its threads): Cross-Origin-Opener-Policy: same-origin and
Cross-Origin-Embedder-Policy: require-corp, on every response.

serve.py FOLDER [PORT]   (PORT 0: any free one); prints the address it serves first."""
import functools
import http.server
import sys


class IsolatedHandler(http.server.SimpleHTTPRequestHandler):
    extensions_map = {**http.server.SimpleHTTPRequestHandler.extensions_map, ".wasm": "application/wasm",
                      ".js": "text/javascript", ".data": "application/octet-stream"}

    def end_headers(self):
        self.send_header("Cross-Origin-Opener-Policy", "same-origin")
        self.send_header("Cross-Origin-Embedder-Policy", "require-corp")
        self.send_header("Cache-Control", "no-cache")
        super().end_headers()

    def log_message(self, format, *args):
        sys.stderr.write("%s\n" % (format % args))


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    folder, port = sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 8080
    server = http.server.ThreadingHTTPServer(("127.0.0.1", port),
                                             functools.partial(IsolatedHandler, directory=folder))
    print("serving %s on http://127.0.0.1:%d/" % (folder, server.server_port), flush=True)
    try:
        server.serve_forever()
    except KeyboardInterrupt:
        pass


if __name__ == "__main__":
    main()
