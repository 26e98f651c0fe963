"""nginx, tinyproxy and a bad certificate, each on a free loopback port and in a folder that its test owns."""

import os
import pathlib
import signal
import socket
import subprocess
import time

NGINX_CONFIGURATION = """\
load_module /usr/lib/nginx/modules/ngx_http_echo_module.so;
{user}
daemon off;
worker_processes 1;
pid {root}/nginx.pid;
error_log {root}/error.log;
events {{}}
http {{
  log_format told '$request_method $request_uri $status, $body_bytes_sent bytes of body, gzip $gzip_ratio, '
                  '$request_time s, agent "$http_user_agent"';
  access_log {root}/access.log told;
  client_body_temp_path {root}/temporary1;
  proxy_temp_path {root}/temporary2;
  fastcgi_temp_path {root}/temporary3;
  uwsgi_temp_path {root}/temporary4;
  scgi_temp_path {root}/temporary5;
  default_type application/rss+xml;
  server {{
    listen 127.0.0.1:{port}{tls};
    root {root}/www;
    {locations}
  }}
}}
"""
CERTIFICATE = """
    ssl_certificate {root}/certificate.pem;
    ssl_certificate_key {root}/key.pem;
"""
PLAIN = 'location = /RssFeed { try_files /feed.xml =404; }'
PATIENCE = 10.0


def free_port() -> int:
    with socket.socket() as probe:
        probe.bind(('127.0.0.1', 0))
        return probe.getsockname()[1]


def wait_for_port(port: int) -> None:
    deadline = time.monotonic() + PATIENCE
    while True:
        try:
            socket.create_connection(('127.0.0.1', port), 1).close()
            return
        except OSError:
            if time.monotonic() > deadline:
                raise
            time.sleep(0.02)


def lines_of(file: pathlib.Path) -> list[str]:
    return file.read_text(errors='replace').splitlines() if file.exists() else []


class Server:
    """A process in the foreground with its own folder."""

    def __init__(self, root: pathlib.Path) -> None:
        self.root = root
        self.port = free_port()
        self.process: subprocess.Popen | None = None
        root.mkdir()

    def run(self, *command: object) -> None:
        self.process = subprocess.Popen([str(part) for part in command], stdin=subprocess.DEVNULL,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_for_port(self.port)

    def stop(self) -> None:
        if self.process and self.process.poll() is None:
            self.process.terminate()
            self.process.wait(PATIENCE)


class Nginx(Server):
    def __init__(self, root: pathlib.Path, tls: bool = False) -> None:
        super().__init__(root)
        (root / 'www').mkdir()
        self.tls = tls
        if tls:
            subprocess.run(['openssl', 'req', '-x509', '-newkey', 'rsa:2048', '-nodes', '-days', '2', '-subj',
                            '/CN=127.0.0.1', '-addext', 'subjectAltName=IP:127.0.0.1', '-keyout', root / 'key.pem',
                            '-out', root / 'certificate.pem'], check=True, capture_output=True)

    @property
    def base(self) -> str:
        return f'{"https" if self.tls else "http"}://127.0.0.1:{self.port}'

    def put(self, name: str, body: bytes) -> None:
        (self.root / 'www' / name).write_bytes(body)

    def configure(self, locations: str) -> None:
        certificate = CERTIFICATE.format(root=self.root) if self.tls else ''
        user = 'user root;' if os.geteuid() == 0 else ''
        (self.root / 'nginx.conf').write_text(NGINX_CONFIGURATION.format(
            root=self.root, user=user, port=self.port, tls=' ssl' if self.tls else '',
            locations=(certificate + locations).replace('PORT', str(self.port))))

    def start(self, locations: str) -> None:
        self.configure(locations)
        self.run('/usr/sbin/nginx', '-p', self.root, '-c', self.root / 'nginx.conf')

    def serve(self, locations: str) -> None:
        """Changes what is served without giving up the port."""
        self.configure(locations)
        workers = self.workers()
        self.process.send_signal(signal.SIGHUP)
        deadline = time.monotonic() + PATIENCE
        while set(self.workers()) <= set(workers) and time.monotonic() < deadline:
            time.sleep(0.02)

    def workers(self) -> list[int]:
        children = pathlib.Path(f'/proc/{self.process.pid}/task/{self.process.pid}/children')
        return [int(pid) for pid in children.read_text().split()]

    def kill_workers(self) -> None:
        """Cuts every connection where it stands. nginx makes new workers by itself."""
        for worker in self.workers():
            os.kill(worker, signal.SIGKILL)

    def access_log(self) -> list[str]:
        return lines_of(self.root / 'access.log')


class Tinyproxy(Server):
    def start(self) -> None:
        (self.root / 'tinyproxy.conf').write_text(
            f'Port {self.port}\nListen 127.0.0.1\nTimeout 60\nLogFile "{self.root}/log"\nLogLevel Connect\n'
            f'PidFile "{self.root}/pid"\nMaxClients 20\nAllow 127.0.0.1\n')
        self.run('/usr/bin/tinyproxy', '-d', '-c', self.root / 'tinyproxy.conf')

    def requests(self) -> list[str]:
        return [line for line in lines_of(self.root / 'log') if 'Request (' in line]
