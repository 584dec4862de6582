"""The print dialog: what is chosen in it is what the system's client gets."""

import signal

from harness import expected, widgets
from harness.case import DialogCase
from harness.waiting import until

STOPPED = "You can't print anything while printer is stopped. Please, start the selected printer."


class Outcome(DialogCase):
    def test_accepted(self):
        file = self.file()
        result = self.accepted(file)
        self.assertEqual(result.arguments, expected.arguments("Laser") + [file])
        self.assertEqual((result.status, result.output, result.errors), (0, "", ""))

    def test_accepted_with_the_keyboard(self):
        for keys in (["Return"], ["alt+o"]):
            with self.subTest(keys):
                run = self.start(self.file())
                self.dialog(run)
                widgets.press(self.desktop, *keys)
                self.assertEqual(len(run.finish().clients), 1)

    def test_cancelled(self):
        for keys in (None, ["Escape"], ["alt+c"]):
            with self.subTest(keys):
                run = self.start(self.file())
                dialog = self.dialog(run)
                if keys:
                    widgets.press(self.desktop, *keys)
                else:
                    dialog.cancel()
                result = run.finish()
                self.assertEqual((result.status, result.clients), (2, []))
                self.assertEqual((result.output, result.errors), ("", ""))

    def test_toolkit_options_are_not_passed_on(self):
        file = self.file()
        display = self.desktop.display
        for options in (("-display", display), ("-style", "fusion"), ("-style=windows",),
                        ("-platform", "xcb"), ("-name", "n"), ("-title", "t"), ("-reverse",)):
            with self.subTest(options):
                result = self.accepted(*options, file)
                self.assertEqual(result.arguments, expected.arguments("Laser") + [file])

    def test_display_of_the_command_line(self):
        file = self.file()
        result = self.accepted("-display", self.desktop.display, file,
                               environment={"DISPLAY": "unix:/nonexistent"})
        self.assertEqual(result.arguments, expected.arguments("Laser") + [file])

    def test_platform_without_a_display(self):
        run = self.start("-platform", "offscreen", given=b"text",
                         environment={"DISPLAY": None, "PRINT_FROM_ORRN": None})
        until(run.captured, "the captured input")
        until(lambda: _has_loaded(run.pid, "libqoffscreen"), "the windows")
        run.send(signal.SIGTERM)
        result = run.finish()
        self.assertEqual((result.status, result.clients), (15, []))


def _has_loaded(pid, library):
    with open("/proc/%d/maps" % pid) as file:
        return library in file.read()


class Destination(DialogCase):
    def test_list(self):
        run = self.start(self.file())
        dialog = self.dialog(run)
        self.assertEqual(dialog.destinations, ["Laser", "Laser", "Office", "Photo", "Plain",
                                               "Rejecting", "Stopped"])
        self.assertEqual(dialog.destination, "Laser")
        self.assertEqual(dialog.status, "idle, accepting jobs")
        dialog.cancel()
        run.finish()

    def test_of_the_command_line(self):
        file = self.file()
        for name in ("Plain", "Photo", "Office", "Laser"):
            with self.subTest(name):
                result = self.accepted("-P", name, file)
                self.assertEqual(result.arguments, expected.arguments(name) + [file])

    def test_chosen_in_the_dialog(self):
        file = self.file()
        for name in ("Plain", "Office"):
            with self.subTest(name):
                result = self.accepted("-P", "Photo", file, work=lambda d, n=name: d.choose(n))
                self.assertEqual(result.arguments, expected.arguments(name) + [file])

    def test_instance(self):
        # The list shows an instance under the name of its printer; its options are used.
        file = self.file()
        result = self.accepted("-P", "Laser/draft", file)
        wanted = expected.arguments("Laser", loaded="Laser/draft")
        self.assertIn("Duplex=DuplexNoTumble", wanted[-1])
        self.assertEqual(result.arguments, wanted + [file])

    def test_choosing_drops_what_was_set_by_hand(self):
        file = self.file()

        def work(dialog):
            dialog.radio("Even pages").check()
            dialog.set_copies(5)
            dialog.choose("Plain")
            until(lambda: dialog.copies.value == 1, "one copy")
            self.assertTrue(dialog.radio("All pages").has(widgets.CHECKED))
        result = self.accepted(file, work=work)
        self.assertEqual(result.arguments, expected.arguments("Plain") + [file])


class NotReady(DialogCase):
    """Printers that are stopped or take no jobs."""

    def assert_warned(self, run, dialog):
        dialog.accept()
        box = dialog.box("Warning!")
        self.assertEqual(box.find("label").name, STOPPED)
        widgets.press(self.desktop, "Return")
        until(lambda: not widgets.has_window(self.desktop, run, "Warning!"), "the end of the box")
        self.assertTrue(dialog.is_open())

    def test_cancelled_after_the_warning(self):
        run = self.start("-P", "Stopped", self.file())
        dialog = self.dialog(run)
        self.assert_warned(run, dialog)
        dialog.cancel()
        result = run.finish()
        self.assertEqual((result.status, result.clients), (2, []))

    def test_rejecting(self):
        run = self.start("-P", "Rejecting", self.file())
        dialog = self.dialog(run)
        self.assertEqual(dialog.status, "idle, rejecting jobs")
        self.assertTrue(dialog.button("Start").has(widgets.ENABLED))
        self.assert_warned(run, dialog)
        dialog.choose("Plain")
        self.assertFalse(dialog.button("Start").has(widgets.ENABLED))
        dialog.accept()
        self.assertEqual(run.finish().arguments[2:4], ["-P", "Plain"])


class Pages(DialogCase):
    def assert_options(self, work, changes):
        for name in ("Laser", "Plain"):
            with self.subTest(name):
                file = self.file()
                result = self.accepted("-P", name, file, work=work)
                self.assertEqual(result.arguments, expected.arguments(name, changes) + [file])
                self.assertEqual(result.status, 0)

    def test_all(self):
        self.assert_options(lambda dialog: (dialog.radio("Odd pages").check(),
                                            dialog.radio("All pages").check()), {})

    def test_even(self):
        self.assert_options(lambda dialog: dialog.radio("Even pages").check(),
                            {"page-set": "even"})

    def test_odd(self):
        self.assert_options(lambda dialog: dialog.radio("Odd pages").check(), {"page-set": "odd"})

    def test_some(self):
        for text in ("1", "1,2-5,10-12,17", "0", "3-3", "2,2,1"):
            def work(dialog, text=text):
                dialog.radio("Some pages:").check()
                dialog.pages.write(text)
            self.assert_options(work, {"page-ranges": text})

    def test_field_is_for_some_pages_alone(self):
        run = self.start(self.file())
        dialog = self.dialog(run)
        self.assertFalse(dialog.pages.has(widgets.ENABLED))
        dialog.radio("Some pages:").check()
        dialog.pages.wait_for(widgets.ENABLED)
        dialog.radio("Even pages").check()
        dialog.pages.wait_for(widgets.ENABLED, False)
        dialog.cancel()
        run.finish()

    def test_invalid_ranges(self):
        file = self.file()
        run = self.start(file)
        dialog = self.dialog(run)
        dialog.radio("Some pages:").check()
        for text in ("1, 2", "2-", "-2", "5-3", "", "1,,2", ",1", "1,", "a", "1-2-3"):
            with self.subTest(text):
                dialog.pages.write(text)
                dialog.accept()
                box = dialog.box("Error!")
                self.assertEqual(
                    box.find("label").name,
                    'Invalid page ranges "%s"\nError at position %s: invalid range value "%s"'
                    % (text, text, text))
                widgets.press(self.desktop, "Return")
                until(lambda: not widgets.has_window(self.desktop, run, "Error!"),
                      "the end of the box")
                self.assertTrue(dialog.is_open())
                self.assertEqual(dialog.pages.text, text)
        dialog.pages.write("2-3")
        dialog.accept()
        result = run.finish()
        self.assertEqual(result.arguments,
                         expected.arguments("Laser", {"page-ranges": "2-3"}) + [file])

    def test_refused_ranges_write_nothing(self):
        # Copies and order come after the pages: refused pages leave them alone.
        file = self.file()

        def work(dialog):
            dialog.radio("Some pages:").check()
            dialog.pages.write("5-3")
            dialog.set_copies(4)
            dialog.check_box("Reverse All Pages (3,2,1)").check()
            dialog.accept()
            dialog.box("Error!")
            widgets.press(self.desktop, "Return")
            dialog.set_copies(1)
            dialog.check_box("Reverse All Pages (3,2,1)").uncheck()
            dialog.radio("All pages").check()
        result = self.accepted(file, work=work)
        self.assertEqual(result.arguments, expected.arguments("Laser") + [file])


COLLATED = {"Collate": "True",
            "multiple-document-handling": "separate-documents-collated-copies"}
UNCOLLATED = {"Collate": "False",
              "multiple-document-handling": "separate-documents-uncollated-copies"}
REVERSED = {"OutputOrder": "Reverse"}


class Copies(DialogCase):
    def test_every_choice(self):
        for copies in (1, 2, 100):
            for collate in (True, False) if copies > 1 else (True,):
                for reverse in (False, True):
                    with self.subTest(copies=copies, collate=collate, reverse=reverse):
                        self.assert_choice(copies, collate, reverse)

    def assert_choice(self, copies, collate, reverse):
        file = self.file()

        def work(dialog):
            if copies > 1:
                dialog.set_copies(copies)
                dialog.check_box("Collate copies").wait_for(widgets.ENABLED)
            if not collate:
                dialog.check_box("Collate copies").uncheck()
            if reverse:
                dialog.check_box("Reverse All Pages (3,2,1)").check()
        changes = {"copies": str(copies)} if copies > 1 else {}
        changes.update((COLLATED if collate else UNCOLLATED) if copies > 1 else {})
        changes.update(REVERSED if reverse else {})
        result = self.accepted("-P", "Plain", file, work=work)
        self.assertEqual(result.arguments, expected.arguments("Plain", changes) + [file])
        self.assertEqual(result.arguments[:2], ["-#", str(copies)])

    def test_one_copy_cannot_be_collated(self):
        run = self.start(self.file())
        dialog = self.dialog(run)
        box = dialog.check_box("Collate copies")
        self.assertFalse(box.has(widgets.ENABLED))
        dialog.set_copies(2)
        box.wait_for(widgets.ENABLED)
        dialog.set_copies(1)
        box.wait_for(widgets.ENABLED, False)
        dialog.cancel()
        run.finish()

    def test_pages_copies_and_order_together(self):
        file = self.file()

        def work(dialog):
            dialog.radio("Some pages:").check()
            dialog.pages.write("1-2")
            dialog.set_copies(3)
            dialog.check_box("Collate copies").uncheck()
            dialog.check_box("Reverse All Pages (3,2,1)").check()
        changes = {"page-ranges": "1-2", "copies": "3", **UNCOLLATED, **REVERSED}
        result = self.accepted(file, work=work)
        self.assertEqual(result.arguments, expected.arguments("Laser", changes) + [file])
