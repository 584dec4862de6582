"""The job options in the client's command line: saved ones, given ones, their escaping."""

from harness import expected, server
from harness.case import DialogCase

#: A value with each of the characters that are escaped, and how it is written.
ESCAPED = (('a"b', 'a\\"b'), ("a\\b", "a\\\\b"), ("a`b", "a\\`b"), ("a b", "a\\ b"),
           ("a$b", "a\\$b"), ('" \\`$', '\\"\\ \\\\\\`\\$'))


class Saved(DialogCase):
    def save(self, destination, **options):
        """Saves options as the user's own, as the system's command does."""
        words = [word for name, value in options.items()
                 for word in ("-o", "%s=%s" % (name.replace("_", "-"), expected.escaped(value)))]
        self.addCleanup(server.command, "lpoptions", "-x", destination)
        server.command("lpoptions", "-p", destination, *words)

    def test_escaped_characters(self):
        file = self.file()
        for value, written in ESCAPED:
            with self.subTest(value):
                self.save("Plain", x=value)
                result = self.accepted("-P", "Plain", file)
                self.assertTrue(result.arguments[-2].endswith(" x=" + written))
                self.assertEqual(result.arguments, expected.arguments("Plain") + [file])

    def test_other_characters_stay(self):
        file = self.file()
        value = "a&c;d|e<f>g*h?i(j)k~n!o%p^q@r\u00e4"
        self.save("Plain", x=value)
        result = self.accepted("-P", "Plain", file)
        self.assertTrue(result.arguments[-2].endswith(" x=" + value))
        self.assertEqual(result.arguments, expected.arguments("Plain") + [file])

    def test_list_is_sorted(self):
        file = self.file()
        self.save("Plain", zebra="1", Alpha="2", media="A4", alpha="3")
        result = self.accepted("-P", "Plain", file)
        names = [word.partition("=")[0] for word in result.arguments[-2].split(" ") if "=" in word]
        self.assertEqual(names, sorted(names))
        self.assertEqual((names[0], names[-1]), ("Alpha", "zebra"))

    def test_pages_and_copies(self):
        file = self.file()
        self.save("Plain", copies="3", Collate="False", OutputOrder="Reverse", page_set="odd")
        seen = {}

        def work(dialog):
            seen.update(copies=dialog.copies.value,
                        odd=dialog.radio("Odd pages").has(4),
                        collate=dialog.check_box("Collate copies").has(4),
                        reverse=dialog.check_box("Reverse All Pages (3,2,1)").has(4))
        result = self.accepted("-P", "Plain", file, work=work)
        self.assertEqual(seen, {"copies": 3, "odd": True, "collate": False, "reverse": True})
        self.assertEqual(result.arguments, expected.arguments("Plain", {
            "multiple-document-handling": "separate-documents-uncollated-copies"}) + [file])

    def test_saved_choice_stays_when_the_control_asks_for_nothing(self):
        file = self.file()
        self.save("Plain", page_ranges="2-3", OutputOrder="Reverse")

        def work(dialog):
            dialog.radio("All pages").check()
            dialog.check_box("Reverse All Pages (3,2,1)").uncheck()
        result = self.accepted("-P", "Plain", file, work=work)
        self.assertEqual(result.arguments, expected.arguments("Plain") + [file])
        self.assertIn("OutputOrder=Reverse ", result.arguments[-2])
        self.assertIn(" page-ranges=2-3 ", result.arguments[-2])

    def test_scaling_is_left_as_saved(self):
        file = self.file()
        self.save("Plain", scaling="50")
        result = self.accepted("-P", "Plain", file)
        self.assertIn(" scaling=50", result.arguments[-2])
        self.assertEqual(result.arguments, expected.arguments("Plain") + [file])

    def test_no_banner_and_a_saved_banner(self):
        # Both travel: what the command line says is never taken away.
        file = self.file()
        self.save("Plain", job_sheets="standard")
        result = self.accepted("-P", "Plain", "-h", file)
        self.assertIn("-h", result.arguments)
        self.assertIn(" job-sheets=standard ", result.arguments[-2])
        result = self.accepted("-P", "Plain", file)
        self.assertNotIn("-h", result.arguments)
        self.assertIn(" job-sheets=standard ", result.arguments[-2])


class Given(DialogCase):
    def test_options_of_the_client_stay(self):
        file = self.file()
        others = [("-C", "class"), ("-J", "job name"), ("-T", "title \u00e4"), ("-U", "someone"),
                  ("-n", "2"), ("-p", None)]
        words = [word for pair in others for word in pair if word is not None]
        result = self.accepted("-P", "Plain", *words, file)
        self.assertEqual(result.arguments, expected.arguments("Plain", others=others) + [file])

    def test_all_operands_in_order(self):
        files = [self.file(name) for name in ("b c.txt", "a'.txt", 'q".txt', "\u00e9\u4e2d.txt",
                                              "line\nbreak.txt", "a'.txt")]
        result = self.accepted(files[0], "-P", "Plain", *files[1:])
        self.assertEqual(result.arguments, expected.arguments("Plain") + files)

    def test_media_with_escaped_characters(self):
        file = self.file()
        for value, written in ESCAPED:
            with self.subTest(value):
                result = self.accepted("-P", "Plain", "-o", "media=" + expected.escaped(value), file)
                self.assertIn(" media=%s " % written, result.arguments[-2])
                self.assertEqual(result.arguments,
                                 expected.arguments("Plain", {"media": value}) + [file])

    def test_quoted_media(self):
        file = self.file()
        for given in ("media='a b'", 'media="a b"'):
            with self.subTest(given):
                result = self.accepted("-P", "Plain", "-o", given, file)
                self.assertEqual(result.arguments,
                                 expected.arguments("Plain", {"media": "a b"}) + [file])

    def test_media_goes_along_to_another_destination(self):
        file = self.file()
        result = self.accepted("-P", "Plain", "-o", "media=A5", file,
                               work=lambda dialog: dialog.choose("Photo"))
        self.assertIn(" media=A5 ", result.arguments[-2])

    def test_unknown_destination(self):
        # The list keeps its first entry, and that is what is printed on.
        file = self.file()
        run = self.start("-P", "Nowhere", file)
        dialog = self.dialog(run)
        self.assertEqual(dialog.destination, "Laser")
        self.assertEqual(dialog.status, "idle, accepting jobs")
        dialog.accept()
        self.assertEqual(run.finish().arguments, ["-P", "Laser", "-o", "scaling=100", file])

    def test_other_job_options_give_way_to_the_saved_ones(self):
        file = self.file()
        result = self.accepted("-P", "Plain", "-o", "note=1", "-#", "7", file)
        self.assertEqual(result.arguments, expected.arguments("Plain") + [file])

    def copies(self, *words):
        """What the dialog shows and what the client is told."""
        shown = []
        result = self.accepted(*words, self.file(),
                               work=lambda dialog: shown.append(dialog.copies.value))
        at = result.arguments.index("-#")
        return shown[0], result.arguments[at + 1]

    def test_copies_give_way_to_those_that_the_server_names(self):
        # None are saved: it is the server's one copy.
        self.assertEqual(self.copies("-P", "Plain", "-#", "7"), (1, "1"))

    def test_copies_stay_where_nothing_is_known_of_the_destination(self):
        self.assertEqual(self.copies("-P", "Nowhere", "-#", "7"), (1, "7"))
