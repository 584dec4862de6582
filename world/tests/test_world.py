"""What the private world promises. Run as: test_world.py namespace|relocated [TestCase...]"""

import json
import os
import re
import signal
import subprocess
import sys
import tempfile
import time
import unittest

_HERE = os.path.dirname(os.path.abspath(__file__))
_WORLD = os.path.join(os.path.dirname(_HERE), "world")
_LIB = os.path.join(os.path.dirname(_HERE), "lib")
_SKIPPED = 77
_PATIENCE = 60

_mode = []


def world(*options, command, **settings):
    """The finished run of a command in a world."""
    return subprocess.run([_WORLD, *_mode, *options, "--", *command], capture_output=True,
                          text=True, timeout=_PATIENCE, **settings)


def inside(*options, code, **settings):
    """What Python code prints as JSON in a world, read back."""
    head = "import sys, os, json; sys.path.insert(0, %r); import ipp\n" % _LIB
    head += "socket = os.environ.get('CUPS_SERVER', '/run/cups/cups.sock')\n"
    run = world(*options, command=["/usr/bin/python3", "-c", head + code], **settings)
    if run.returncode != 0:
        raise AssertionError(run.stderr)
    return json.loads(run.stdout)


def shell(*options, script, **settings):
    return world(*options, command=["/bin/sh", "-ec", script], **settings)


def wait_until(condition, what):
    limit = time.monotonic() + _PATIENCE
    while not condition():
        if time.monotonic() > limit:
            raise AssertionError("still waiting: " + what)
        time.sleep(0.01)


def records(data):
    """The argument lists of a recorder's file."""
    texts = data.split("\0")
    assert texts.pop() == ""
    found = []
    while texts:
        count = int(texts[0])
        found.append(texts[1:1 + count])
        del texts[:1 + count]
    return found


class Queues(unittest.TestCase):
    def test_queues_states_and_default(self):
        default, queues = inside(code="""
names = ("printer-state", "printer-is-accepting-jobs", "printer-info", "printer-location",
         "printer-make-and-model", "member-names")
print(json.dumps([ipp.default_printer(socket), ipp.printers(socket, *names)]))""")
        idle, stopped = 3, 5
        self.assertEqual(default, "Laser")
        self.assertEqual(
            {name: (about["printer-state"][0], about["printer-is-accepting-jobs"][0])
             for name, about in queues.items()},
            {"Laser": (idle, True), "Photo": (idle, True), "Plain": (idle, True),
             "Office": (idle, True), "Stopped": (stopped, True), "Rejecting": (idle, False)})
        self.assertEqual(queues["Office"]["member-names"], ["Laser", "Photo"])
        self.assertEqual(queues["Laser"]["printer-location"], ["First floor, room 12"])
        self.assertIn("Tarvel CL 4200", queues["Laser"]["printer-make-and-model"][0])
        for about in queues.values():
            self.assertTrue(about["printer-info"][0] and about["printer-location"][0])

    def test_client_library_sees_the_default_and_the_instance(self):
        run = shell(script="lpstat -v; lpstat -d; lpoptions -p Laser/draft")
        self.assertIn("device for Laser/draft: tofile:", run.stdout)
        self.assertIn("system default destination: Laser\n", run.stdout)
        self.assertIn(" Resolution=300dpi", run.stdout)
        self.assertEqual(run.returncode, 0)

    def test_saved_file_is_as_lpoptions_writes_it(self):
        run = shell(script="""
            cp "$HOME/.cups/lpoptions" "$HOME/ours"
            rm "$HOME/.cups/lpoptions"
            lpoptions -p Laser/draft -o Duplex=DuplexNoTumble -o InputSlot=Tray2 \
                -o Resolution=300dpi
            cmp "$HOME/ours" "$HOME/.cups/lpoptions" """)
        self.assertEqual((run.returncode, run.stdout, run.stderr), (0, "", ""))

    def test_drivers_conform(self):
        folder = os.path.join(os.path.dirname(_HERE), "ppd")
        for name in os.listdir(folder):
            run = subprocess.run(["cupstestppd", "-q", os.path.join(folder, name)])
            self.assertEqual(run.returncode, 0, name)

    def test_many_queues(self):
        names = inside("--no-samples", "--queues", "1000",
                       code="print(json.dumps(sorted(ipp.printers(socket))))")
        self.assertEqual(names, ["Queue%04d" % number for number in range(1, 1001)])

    def test_administration_needs_the_name_root(self):
        seen = inside(code="""
seen = []
for user in ("somebody", "root"):
    try:
        ipp.pause_printer(socket, "Laser", user)
    except RuntimeError as error:
        seen.append(str(error))
    seen.append(ipp.printers(socket, "printer-state")["Laser"]["printer-state"])
print(json.dumps(seen))""")
        idle, stopped = [3], [5]
        self.assertEqual(seen, ["HTTP status 401", idle, stopped])

    def test_administration_with_a_password(self):
        if _mode:
            run = world("--auth", command=["true"])
            self.assertEqual(run.returncode, 2)
            self.assertIn("--auth needs the private namespaces", run.stderr)
            return
        seen = inside("--auth", code="""
seen = []
for user, password in (("root", None), ("root", "wrong"), ("lp", "secret"), ("root", "secret")):
    try:
        ipp.pause_printer(socket, "Laser", user, password)
    except RuntimeError as error:
        seen.append(str(error))
    seen.append(ipp.printers(socket, "printer-state")["Laser"]["printer-state"][0])
print(json.dumps(seen))""")
        idle, stopped, refused = 3, 5, "HTTP status 401"
        self.assertEqual(seen, [refused, idle, refused, idle, refused, idle, stopped])

    def test_no_server(self):
        run = shell("--no-server", script="lpstat -r")
        self.assertIn("scheduler is not running", run.stdout)


_WAIT_FOR_JOB = """
import time
def job(number):
    limit = time.monotonic() + 60
    while ipp.job(socket, number)["job-state"][0] < 7:
        assert time.monotonic() < limit
        time.sleep(0.01)
    return ipp.job(socket, number)
def printed(name):
    with open(os.path.join(os.environ["VESK_WORLD"], "pages", name), "rb") as file:
        return file.read().decode("latin-1")
"""


class Jobs(unittest.TestCase):
    _COMPLETED = [9]

    def printed_features(self, queue, *options):
        """The driver options in a job of two pages, and the lines that set them."""
        settings = " ".join("-o '%s'" % option for option in options)
        state, text = inside(code=_WAIT_FOR_JOB + """
with open(os.path.expanduser("~/text"), "w") as file:
    file.write("one\\ftwo\\n")
assert os.system(%r) == 0
print(json.dumps([job(1)["job-state"], printed("job-1.ps")]))"""
                             % ("lpr.orig -P %s %s ~/text" % (queue, settings)))
        self.assertEqual(state, self._COMPLETED)
        self.assertTrue(text.startswith("%!PS-Adobe"))
        return {name: code.split() for name, code in re.findall(
            r"^%%BeginFeature: \*(.*)\n((?:.*\n)*?)%%EndFeature", text, re.MULTILINE)}

    def test_driver_options_reach_the_page(self):
        features = self.printed_features("Laser", "Duplex=DuplexNoTumble", "InputSlot=Tray2")
        self.assertIn("Duplex DuplexNoTumble", features)
        self.assertIn("InputSlot Tray2", features)
        self.assertIn("MediaType Plain", features)

    def test_custom_values_reach_the_page(self):
        features = self.printed_features(
            "Photo", "PageSize=Custom.200x300", "ToneCurve=Custom.1.5", "InkLimit=Custom.2.5",
            "Sharpness=Custom.3.5", "Release=Custom.1234", "Lock=Custom.secret",
            "Watermark=Custom.Mine")
        self.assertEqual(features["CustomPageSize True"][:2], ["200", "300"])
        for name, value in (("ToneCurve", "1.5"), ("InkLimit", "2.5"), ("Sharpness", "3.5"),
                            ("Release", "(1234)"), ("Lock", "(secret)"), ("Watermark", "(Mine)")):
            self.assertEqual(features["Custom" + name + " True"][0], value)

    def test_raw_bytes_arrive_unchanged(self):
        same = inside(code=_WAIT_FOR_JOB + """
data = bytes(range(256)) * 1000
with open(os.path.expanduser("~/data"), "wb") as file:
    file.write(data)
assert os.system("lpr.orig -P Plain '-#' 2 ~/data") == 0
job(1)
print(json.dumps(printed("job-1.prn") == data.decode("latin-1") * 2))""")
        self.assertTrue(same)

    def test_class_prints_on_a_member(self):
        about = inside(code=_WAIT_FOR_JOB + """
assert os.system("echo text | lpr.orig -P Office") == 0
print(json.dumps([job(1)["job-state"], printed("job-1.ps")[:4]]))""")
        self.assertEqual(about, [self._COMPLETED, "%!PS"])

    def test_stopped_queue_keeps_and_rejecting_queue_refuses(self):
        numbers = inside(code="""
statuses = [os.waitstatus_to_exitcode(os.system("echo text | lpr.orig 2>/dev/null -P " + name))
            for name in ("Stopped", "Rejecting")]
print(json.dumps([statuses, ipp.jobs(socket), ipp.job(socket, 1)["job-state"]]))""")
        pending = [3]
        self.assertEqual(numbers, [[0, 1], [1], pending])


class Client(unittest.TestCase):
    _HARD = ("a b", "", "new\nline", "quote's", 'double "quotes"', "back\\slash", "\u00e4\u20ac",
             "-o", "$HOME", "*")

    def test_arguments_are_recorded_exactly(self):
        data = inside(code="""
import subprocess
for arguments in (%r, ["second"]):
    subprocess.run(["lpr.orig", *arguments], stderr=subprocess.DEVNULL)
with open(os.environ["VESK_WORLD"] + "/client-argv", encoding="utf-8", newline="") as file:
    print(json.dumps(file.read()))""" % (self._HARD,))
        self.assertEqual(records(data), [["lpr.orig", *self._HARD], ["lpr.orig", "second"]])

    def test_records_of_runs_at_the_same_time_do_not_mix(self):
        run = shell(script="""
            for i in $(seq 40); do lpr.orig -P none "$i" "$i" 2>/dev/null & done
            wait
            cat "$VESK_WORLD/client-argv" """)
        found = records(run.stdout)
        self.assertEqual(sorted(int(record[3]) for record in found), list(range(1, 41)))
        for record in found:
            self.assertEqual(record, ["lpr.orig", "-P", "none", record[3], record[3]])

    def test_recorder_needs_no_environment(self):
        run = shell(script="""
            env -i "$(command -v lpr.orig)" -V 2>/dev/null || true
            cat "$VESK_WORLD/client-argv" """)
        self.assertEqual([record[1:] for record in records(run.stdout)], [["-V"]])

    def test_other_client(self):
        with tempfile.NamedTemporaryFile("w", suffix=".sh", delete=False) as script:
            script.write("#!/bin/sh\necho other \"$@\"\nexit 3\n")
            os.fchmod(script.fileno(), 0o755)
        try:
            run = shell("--client", script.name, script="lpr.orig one || echo $?")
        finally:
            os.unlink(script.name)
        self.assertEqual(run.stdout, "other one\n3\n")

    def test_no_client(self):
        run = shell("--no-client", script="command -v lpr.orig || echo none")
        self.assertEqual(run.stdout, "none\n")

    def test_client_itself(self):
        run = shell("--no-record", script="""
            echo text | lpr.orig -P Plain
            wc -c <"$VESK_WORLD/client-argv" """)
        self.assertEqual((run.returncode, run.stdout.strip()), (0, "0"))

    def test_installed_program_is_lpr(self):
        with tempfile.TemporaryDirectory() as tree:
            os.makedirs(os.path.join(tree, "bin"))
            os.makedirs(os.path.join(tree, "share"))
            os.chmod(tree, 0o755)
            program = os.path.join(tree, "bin/vesk")
            with open(program, "w") as file:
                file.write("#!/bin/sh\necho program \"$@\"\n")
            os.chmod(program, 0o755)
            run = shell("--install", tree, script="""
                lpr one
                readlink "$(command -v lpr)"
                ls "$(dirname "$(readlink "$(command -v lpr)")")/.." """)
        lines = run.stdout.splitlines()
        self.assertEqual(lines[0], "program one")
        self.assertTrue(lines[1].endswith("/opt/Tarvel/mfp/bin/vesk"))
        self.assertEqual(lines[2:], ["bin", "share"])
        if not _mode:
            self.assertEqual(lines[1], "/opt/Tarvel/mfp/bin/vesk")


class Privacy(unittest.TestCase):
    def test_settings_that_lead_out_are_gone(self):
        foreign = dict(os.environ, PRINTER="x", LPDEST="x", CUPS_USER="x", XDG_CONFIG_HOME="/x")
        run = world(command=["/usr/bin/env"], env=foreign)
        names = {line.partition("=")[0] for line in run.stdout.splitlines()}
        self.assertFalse(names & {"PRINTER", "LPDEST", "CUPS_USER", "XDG_CONFIG_HOME"})
        self.assertLessEqual({"VESK_WORLD", "HOME"}, names)

    def test_two_worlds_side_by_side(self):
        script = 'cupsdisable -U root Laser; echo "$VESK_WORLD"; read line; lpstat -p Laser'
        first = subprocess.Popen([_WORLD, *_mode, "--", "/bin/sh", "-ec", script],
                                 stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        folder = first.stdout.readline().strip()
        run = shell(script='echo "$VESK_WORLD"; lpstat -p Laser')
        rest = first.communicate("go on\n", timeout=_PATIENCE)[0]
        self.assertNotEqual(run.stdout.splitlines()[0], folder)
        self.assertIn("Laser is idle", run.stdout)
        self.assertIn("Laser disabled", rest)

    def test_machine_is_not_touched(self):
        watched = ("/etc/cups", "/run/cups", "/var/spool/cups", "/var/cache/cups",
                   "/var/log/cups", "/var/tmp", os.path.expanduser("~/.cups"))

        def state():
            return [(path, os.stat(path).st_mtime_ns if os.path.exists(path) else None)
                    for path in watched]

        before = state()
        run = shell(script="""
            echo text | lpr.orig -P Plain
            lpoptions -p Photo -o ToneCurve=Soft
            cupsdisable -U root Photo""")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertEqual(state(), before)

    def test_private_folders(self):
        if _mode:
            return self._check_relocated()
        run = shell(script="""
            echo mine >/var/tmp/vesk-test-file
            if [ "$(id -u)" = 0 ]; then
                echo mine >/opt/vesk-test-file
                echo mine >/usr/bin/vesk-test-file
            fi
            test -S /var/run/cups/cups.sock
            ls /opt /var/tmp""", cwd="/")
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        names = set(run.stdout.split()) - {"vesk-test-file", "/opt:", "/var/tmp:"}
        self.assertEqual(names, {"Tarvel"})
        for folder in ("/var/tmp", "/opt", "/usr/bin"):
            self.assertFalse(os.path.exists(os.path.join(folder, "vesk-test-file")))

    def _check_relocated(self):
        run = shell(script="""
            test "$VESK_RELOCATED_ROOT" = "$VESK_WORLD"
            test -S "$VESK_RELOCATED_ROOT/var/run/cups/cups.sock"
            test -d "$VESK_RELOCATED_ROOT/var/tmp"
            test "$(command -v lpr.orig)" = "$VESK_RELOCATED_ROOT/usr/bin/lpr.orig"
            test "$TMPDIR" = "$VESK_RELOCATED_ROOT/tmp" """)
        self.assertEqual(run.returncode, 0, run.stderr)

    def test_working_directory_stays_visible(self):
        with tempfile.TemporaryDirectory() as folder:
            open(os.path.join(folder, "file"), "w").close()
            run = shell(script="pwd; ls", cwd=folder)
            self.assertEqual(run.stdout.splitlines(), [os.path.realpath(folder), "file"])
            self.assertTrue(os.path.exists(os.path.join(folder, "file")))

    def test_shown_file_stays_visible(self):
        with tempfile.NamedTemporaryFile("w", suffix=" shown") as file:
            file.write("text")
            file.flush()
            run = world("--show", file.name, command=["/bin/cat", file.name], cwd="/")
            self.assertEqual(run.stdout, "text")

    def test_without_overlays(self):
        if _mode:
            self.assertEqual(shell("--no-overlay", script="true").returncode, 0)
            return
        run = shell("--no-overlay", script="""
            readlink /usr/bin/lpr
            echo text | lpr.orig -P Plain
            lpstat -d""")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn("/opt/Tarvel/mfp/bin/vesk\n", run.stdout)
        self.assertIn("destination: Laser", run.stdout)

    def test_results_are_kept_on_demand(self):
        with tempfile.TemporaryDirectory() as folder:
            target = os.path.join(folder, "kept")
            run = inside(code=_WAIT_FOR_JOB + """
os.system("echo text | lpr.orig -P Plain")
job(1)
print(json.dumps(os.environ.get("VESK_KEEP")))""", env=dict(os.environ, VESK_KEEP=target))
            self.assertIsNone(run)
            self.assertEqual(os.listdir(os.path.join(target, "pages")), ["job-1.prn"])
            self.assertIn("error_log", os.listdir(os.path.join(target, "server-logs")))
            with open(os.path.join(target, "client-argv"), newline="") as file:
                self.assertEqual(records(file.read()), [["lpr.orig", "-P", "Plain"]])


#: A keeper whose first look at its child comes just before that ends; ends with the child's status.
_LATE_END = """
import os, sys
sys.path.insert(0, sys.argv[1])
import front, processes

look = os.waitpid
go, end = os.pipe()
ended = front._watch_children()
orphan = processes.fork(lambda: 0)
child = processes.fork(lambda: len(os.read(go, 7)))

def slow_look(pid, flags):
    found = look(pid, flags)
    if not found[0]:
        os.write(end, b"7 bytes")
        os.waitid(os.P_PID, pid, os.WEXITED | os.WNOWAIT)
    return found

os.waitid(os.P_PID, orphan, os.WEXITED | os.WNOWAIT)
os.waitpid = slow_look
os._exit(front._wait_for_inside(child, [], ended))
"""


class End(unittest.TestCase):
    """Nothing is left, whichever way a world ends."""

    # A grandchild in a session of its own, which outlives its parent.
    _SCRIPT = """
        setsid sh -c 'sleep 1000 & exec sleep 1000' &
        echo text | lpr.orig -P Laser
        echo "$VESK_WORLD"
        exec sleep 1000"""

    def setUp(self):
        self.marker = "vesk-test-%d-%d" % (os.getpid(), time.monotonic_ns())

    def start(self, script=_SCRIPT):
        """A running world in a group of its own, and its folder."""
        run = subprocess.Popen([_WORLD, *_mode, "--", "/bin/sh", "-ec", script],
                               stdout=subprocess.PIPE, text=True, start_new_session=True,
                               env=dict(os.environ, MARKER=self.marker))
        folder = run.stdout.readline().strip()
        self.assertTrue(os.path.isdir(folder))
        self.assertTrue(self.processes(folder))
        return run, folder

    def processes(self, folder):
        """The processes that show the world's folder or the run's mark."""
        found = []
        for pid in filter(str.isdigit, os.listdir("/proc")):
            if int(pid) == os.getpid():
                continue
            text = b""
            for name in ("cmdline", "environ"):
                try:
                    with open("/proc/%s/%s" % (pid, name), "rb") as file:
                        text += file.read()
                except OSError:
                    pass  # ended meanwhile, or root's
            if folder.encode() in text or self.marker.encode() in text:
                found.append((pid, text))
        return found

    def assert_nothing_left(self, folder):
        wait_until(lambda: not self.processes(folder), "processes to end")
        wait_until(lambda: not os.path.exists(folder), "the folder to go")
        with open("/proc/self/mountinfo") as mounts:
            self.assertNotIn(folder, mounts.read())

    def test_normal_end(self):
        run, folder = self.start(self._SCRIPT.replace("exec sleep 1000\"", "\"").replace(
            "exec sleep 1000", "exit 7") .replace("& exit 7'", "& sleep 1000'"))
        self.assertEqual(run.wait(_PATIENCE), 7)
        self.assertFalse(os.path.exists(folder))
        self.assertEqual(self.processes(folder), [])
        self.assert_nothing_left(folder)
        run.stdout.close()

    def test_status_of_a_killed_command(self):
        self.assertEqual(shell(script="kill -9 $$").returncode, 128 + 9)

    def test_missing_command(self):
        self.assertEqual(world(command=["/nonexistent/command"]).returncode, 127)

    def test_signal_to_the_outer_process(self):
        for number in (signal.SIGHUP, signal.SIGINT, signal.SIGTERM):
            with self.subTest(signal=number):
                run, folder = self.start()
                run.send_signal(number)
                self.assertEqual(run.wait(_PATIENCE), -number)
                self.assertFalse(os.path.exists(folder))
                self.assert_nothing_left(folder)
                run.stdout.close()

    def test_kill_of_the_outer_process(self):
        run, folder = self.start()
        run.kill()
        self.assertEqual(run.wait(_PATIENCE), -signal.SIGKILL)
        self.assert_nothing_left(folder)
        run.stdout.close()

    def test_signal_to_the_whole_group(self):
        for number in (signal.SIGINT, signal.SIGKILL):
            with self.subTest(signal=number):
                run, folder = self.start()
                os.killpg(run.pid, number)
                self.assertEqual(run.wait(_PATIENCE), -number)
                self.assert_nothing_left(folder)
                run.stdout.close()

    def test_command_that_ignores_the_request_to_end(self):
        run, folder = self.start('trap "" TERM INT; echo "$VESK_WORLD"; while :; do sleep 1; done')
        run.terminate()
        self.assertEqual(run.wait(_PATIENCE), -signal.SIGTERM)
        self.assert_nothing_left(folder)
        run.stdout.close()

    def test_kill_of_the_keeper(self):
        if os.getuid() != 0 and not _mode:
            self.skipTest("the keeper is root's")
        run, folder = self.start()
        with open("/proc/%d/task/%d/children" % (run.pid, run.pid)) as children:
            keeper = int(children.read().split()[0])
        os.kill(keeper, signal.SIGKILL)
        self.assertEqual(run.wait(_PATIENCE), 128 + 9)
        self.assert_nothing_left(folder)
        run.stdout.close()

    def test_end_right_after_the_keeper_looked(self):
        """An orphan's end wakes the keeper; the world ends between its look and its next wait."""
        run = subprocess.run(["/usr/bin/python3", "-c", _LATE_END, _LIB], capture_output=True,
                             text=True, timeout=_PATIENCE)
        self.assertEqual((run.returncode, run.stderr), (7, ""))

    def test_folder_of_a_world_killed_at_one_blow_is_removed_later(self):
        folder = tempfile.mkdtemp(prefix="vesk-world-", dir="/tmp")
        os.utime(folder, (0, 0))
        self.assertEqual(shell(script="true").returncode, 0)
        self.assertFalse(os.path.exists(folder))


def main():
    mode, *names = sys.argv[1:]
    if mode == "relocated":
        _mode.append("--relocated")
    elif subprocess.run([_WORLD, "--probe"]).returncode != 0:
        print("the kernel refuses the private namespaces here")
        sys.exit(_SKIPPED)
    unittest.main(argv=[sys.argv[0], *names], verbosity=2)


if __name__ == "__main__":
    main()
