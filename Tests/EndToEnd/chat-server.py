#!/usr/bin/python3
"""chat-server.py CONTENT-FILE: a chat-completions service on a free local port, which it prints.

Every request gets the content of the file as its text output. The requests' bodies go to standard error.
"""
import http.server
import json
import pathlib
import sys


class ChatService(http.server.BaseHTTPRequestHandler):
    def do_POST(self):
        body = self.rfile.read(int(self.headers["Content-Length"]))
        sys.stderr.write(body.decode() + "\n")
        is_known = self.path == "/v1/chat/completions" and self.headers["Authorization"] == "Bearer test-key"
        content = pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")
        reply = json.dumps({"choices": [{"message": {"role": "assistant", "content": content}}]}).encode()
        self.send_response(200 if is_known else 401)
        self.send_header("Content-Type", "application/json")
        self.send_header("Content-Length", str(len(reply)))
        self.end_headers()
        self.wfile.write(reply)

    def log_message(self, *arguments):
        pass


server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), ChatService)
print(server.server_port, flush=True)
server.serve_forever()
