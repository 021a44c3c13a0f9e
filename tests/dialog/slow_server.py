"""A stand-in between tape-print and a print server that makes the server slow, silent or broken."""

import select
import socket
import threading

_STEP = 0.05  # seconds between two looks at what the test wants


class Between:
    """Forwards connections to the server at `behind` as the mode says; used in a with statement.

    mode, which a test may change at any time:
      "pass"  everything goes through
      "hang"  connections are taken and never answered
      "half"  of a PPD only the first `limit` bytes come, then nothing
      "cut"   the same, then the connection is closed
      "hold"  after `limit` bytes from the client no more are taken
    `held` tells how many connections have been stopped on their way.
    """

    def __init__(self, behind=None, mode="pass", limit=4096):
        self.behind, self.mode, self.limit = behind, mode, limit
        self.held = 0
        self.over = False
        self.listener = socket.socket()
        # Small, so that the client feels at once that nobody takes its bytes.
        self.listener.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 65536)
        self.listener.bind(("127.0.0.1", 0))
        self.listener.listen(16)
        self.address = "127.0.0.1:{}".format(self.listener.getsockname()[1])
        self.threads = [threading.Thread(target=self._listen)]
        self.threads[0].start()

    def __enter__(self):
        return self

    def __exit__(self, *failure):
        self.over = True
        for thread in self.threads:
            thread.join()
        self.listener.close()

    def environment(self):
        return {"CUPS_SERVER": self.address}

    def _listen(self):
        while not self.over:
            if select.select([self.listener], [], [], _STEP)[0]:
                client = self.listener.accept()[0]
                self.threads.append(threading.Thread(target=self._serve, args=(client,)))
                self.threads[-1].start()

    def _stop(self, client):
        """Takes and sends nothing any more until the client has gone."""
        self.held += 1
        poll = select.poll()
        poll.register(client, select.POLLRDHUP | select.POLLHUP | select.POLLERR)
        while not self.over and not poll.poll(_STEP * 1000):
            pass

    def _serve(self, client):
        with client:
            if self.mode == "hang":
                self._stop(client)
                return
            host, _, port = self.behind.partition(":")
            with socket.create_connection((host, int(port))) as server:
                try:
                    self._forward(client, server)
                except ConnectionError:
                    pass

    def _forward(self, client, server):
        sent = received = 0
        wants_ppd = False
        while not self.over:
            for source in select.select([client, server], [], [], _STEP)[0]:
                data = source.recv(16384)
                if not data:
                    return
                if source is client:
                    if self.mode == "hang" or (self.mode == "hold" and sent > self.limit):
                        self._stop(client)
                        return
                    wants_ppd = data.startswith(b"GET ") and b".ppd " in data.split(b"\n")[0]
                    sent += len(data)
                    server.sendall(data)
                elif wants_ppd and self.mode in ("half", "cut"):
                    client.sendall(data[:self.limit - received])
                    received += len(data)
                    if received >= self.limit:
                        if self.mode == "half":
                            self._stop(client)
                        return
                else:
                    client.sendall(data)
