"""What ./demo promises. Run as: test_demo.py namespace|relocated [TestCase...]"""

import glob
import os
import pwd
import re
import signal
import subprocess
import sys
import tempfile
import time
import unittest

from test_world import _HERE, _PATIENCE, _SKIPPED, _WORLD, wait_until

_PROJECT = os.path.dirname(os.path.dirname(_HERE))
_DEMO = os.path.join(_PROJECT, "demo")

_options = ["--scripted"]


def pages(path):
    """The text of the pages of a PostScript file."""
    with tempfile.TemporaryDirectory() as folder:
        pdf = os.path.join(folder, "pages.pdf")
        subprocess.run(["gs", "-q", "-dSAFER", "-sDEVICE=pdfwrite", "-o", pdf, path], check=True)
        text = subprocess.run(["pdftotext", pdf, "-"], check=True, capture_output=True, text=True)
    return text.stdout


class Demo(unittest.TestCase):
    def setUp(self):
        self.marker = "vesk-demo-test-%d-%d" % (os.getpid(), time.monotonic_ns())
        # The scripted user reads English, whatever the machine speaks.
        self.environment = dict(os.environ, MARKER=self.marker, LANGUAGE="de")

    def results(self, output):
        """The folder with the results of a run, removed after the test."""
        folder = re.search(r"^  (.*/out/demo-[^/]*)/pages/", output, re.MULTILINE).group(1)
        self.addCleanup(subprocess.run, ["rm", "-rf", folder])
        return folder

    def test_scripted_user_prints_the_sample(self):
        run = subprocess.run([_DEMO, *_options], capture_output=True, text=True, cwd="/",
                             env=self.environment, timeout=_PATIENCE)
        self.assertEqual(run.returncode, 0, run.stdout + run.stderr)
        folder = self.results(run.stdout)
        relocated = "--relocated" in _options
        self.assertEqual("vesk-relocated" in run.stdout, relocated)
        self.assertEqual("Running: /usr/bin/lpr " in run.stdout, not relocated)
        self.assertRegex(run.stdout, r"lpr\.orig '-#' 2 -P Photo .*page-ranges=1-2 .*sample\.ps\n")
        self.assertRegex(run.stdout, r"job-state +completed\n")
        self.assertRegex(run.stdout, r"page-ranges +1-2\n")
        self.assertEqual(re.findall("Page [a-z]*", pages(folder + "/pages/job-1.ps")),
                         ["Page one", "Page two"] * 2)
        self.assertEqual(len(os.listdir(folder + "/pictures")), 3)

    def test_plugins(self):
        run = subprocess.run([_DEMO, *_options, "--plugins"], capture_output=True, text=True,
                             cwd="/", env=self.environment, timeout=_PATIENCE)
        self.assertEqual(run.returncode, 0, run.stdout + run.stderr)
        folder = self.results(run.stdout)
        self.assertRegex(run.stdout, r"qfax-number=0301234567 ")
        self.assertRegex(run.stdout, r"qfax-number +0301234567\n")
        self.assertEqual(len(os.listdir(folder + "/pictures")), 5)

    def test_file_with_a_hard_name(self):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "a b'c\u00e4.ps")
            with open(path, "w") as file:
                file.write("%!\n/Times-Roman findfont 20 scalefont setfont\n"
                           "100 100 moveto (my own text) show showpage\n")
            run = subprocess.run([_DEMO, *_options, os.path.basename(path)], capture_output=True,
                                 text=True, cwd=folder, env=self.environment, timeout=_PATIENCE)
        self.assertEqual(run.returncode, 0, run.stdout + run.stderr)
        self.assertIn("my own text", pages(self.results(run.stdout) + "/pages/job-1.ps"))

    def test_unreadable_file(self):
        run = subprocess.run([_DEMO, *_options, "/nonexistent"], capture_output=True, text=True)
        self.assertEqual((run.returncode, run.stderr), (1, "demo: cannot read /nonexistent\n"))

    def left_over(self):
        found = []
        for pid in filter(str.isdigit, os.listdir("/proc")):
            try:
                with open("/proc/%s/environ" % pid, "rb") as file:
                    if int(pid) != os.getpid() and self.marker.encode() in file.read():
                        found.append(pid)
            except OSError:
                pass
        return found

    def interrupt(self, moment, number, whole_group):
        """Ends a run by a signal when its output shows `moment`; nothing may be left."""
        run = subprocess.Popen([_DEMO, *_options], stdout=subprocess.PIPE, text=True,
                               stderr=subprocess.DEVNULL, start_new_session=True,
                               env=self.environment)
        seen = ""
        while moment not in seen:
            line = run.stdout.readline()
            self.assertTrue(line, seen)
            seen += line
        (os.killpg if whole_group else os.kill)(run.pid, number)
        run.stdout.read()
        run.wait(_PATIENCE)
        self.assertNotEqual(run.returncode, 0)
        wait_until(lambda: not self.left_over(), "processes to end")
        with open("/proc/self/mountinfo") as mounts:
            self.assertNotIn("vesk-world", mounts.read())
        results = glob.glob("%s/out/demo-*-%d" % (_PROJECT, run.pid))
        if number == signal.SIGKILL:
            subprocess.run(["rm", "-rf", *results])
        else:
            self.assertEqual(results, [])
        world = re.search(r"(/tmp/vesk-world-[^/]*)/", seen)
        if world:
            wait_until(lambda: not os.path.exists(world.group(1)), "the world's folder to go")
        run.stdout.close()

    def test_interrupted_by_the_keyboard(self):
        for moment in ("Using", "scripted user", "Running"):
            with self.subTest(moment=moment):
                self.interrupt(moment, signal.SIGINT, True)

    def test_terminated(self):
        self.interrupt("Running", signal.SIGTERM, False)

    def test_killed(self):
        self.interrupt("Running", signal.SIGKILL, False)


#: In a private mount namespace somebody may use sudo and has a copy of the project in its place.
#: Arguments: the project, the copy, the command.
_AS_SOMEBODY = """set -eu
project=$1 copy=$2
shift 2
printf 'root ALL=(ALL) ALL\\nnobody ALL=(ALL) NOPASSWD: ALL\\n' >"$copy/../sudoers"
chmod 440 "$copy/../sudoers"
mount --bind "$copy/../sudoers" /etc/sudoers
closed=
folder=$(dirname "$project")
while [ "$folder" != / ]; do
    [ -n "$(find "$folder" -maxdepth 0 -perm -o=x)" ] || closed=$folder
    folder=$(dirname "$folder")
done
if [ -n "$closed" ]; then
    mount -t tmpfs -o mode=755 none "$closed"
    mkdir -p "$project"
fi
mount --bind "$copy" "$project"
cd /
export HOME=$project
exec setpriv --reuid=nobody --regid=nogroup --clear-groups -- "$@"
"""
#: What the demo makes itself, and what tests may write to meanwhile.
_NOT_COPIED = ("out", ".git", ".cache", "build-dev/demo*", "build-dev/tests", "build-dev/Testing",
               "build-dev/e2e-tree")


def may_mount():
    return subprocess.run([_WORLD, "--probe"]).returncode == 0


if os.getuid() == 0 and may_mount():
    class OrdinaryUser(unittest.TestCase):
        """What somebody with sudo sees, when root is the tester."""

        def copy_project(self, copy):
            os.mkdir(copy)
            os.chown(copy, pwd.getpwnam("nobody").pw_uid, -1)
            names = [name for name in os.listdir(_PROJECT)
                     if name == "build-dev" or not name.startswith("build-")]
            with subprocess.Popen(
                    ["tar", "-C", _PROJECT, "--format=posix", "--owner=nobody", "--group=nogroup",
                     "--anchored", *["--exclude=" + name for name in _NOT_COPIED], "-c", *names],
                    stdout=subprocess.PIPE) as pack:
                subprocess.run(["tar", "-C", copy, "-xp"], stdin=pack.stdout, check=True)
            self.assertEqual(pack.returncode, 0)

        def test_scripted_user_prints_the_sample(self):
            with tempfile.TemporaryDirectory() as folder:
                os.chmod(folder, 0o755)
                copy = os.path.join(folder, "project")
                self.copy_project(copy)
                run = subprocess.run(
                    ["unshare", "-m", "/bin/sh", "-c", _AS_SOMEBODY, "sh", _PROJECT, copy, _DEMO,
                     *_options], capture_output=True, text=True, timeout=_PATIENCE)
                self.assertEqual(run.returncode, 0, run.stdout + run.stderr)
                self.assertEqual("sudo may ask for your password" in run.stdout,
                                 "--relocated" not in _options)
                self.assertRegex(run.stdout, r"job-originating-user-name +nobody\n")
                results, = glob.glob(copy + "/out/demo-*")
                self.assertEqual(re.findall("Page [a-z]*", pages(results + "/pages/job-1.ps")),
                                 ["Page one", "Page two"] * 2)
                self.assertEqual({os.stat(path).st_uid for path in glob.glob(results + "/*")},
                                 {os.stat(copy).st_uid})
elif os.getuid() == 0:
    print("the kernel refuses the private namespaces, so only root's demo is tested")


def main():
    mode, *names = sys.argv[1:]
    if mode == "relocated":
        _options.append("--relocated")
    elif not may_mount():
        print("the kernel refuses the private namespaces here")
        sys.exit(_SKIPPED)
    unittest.main(argv=[sys.argv[0], *names], verbosity=2)


if __name__ == "__main__":
    main()
