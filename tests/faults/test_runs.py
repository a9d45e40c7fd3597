"""What pages ask for that they must get, and what they must not."""

import os

from serving import ServerTest


class Names(ServerTest):
    PAGES = {
        "sub/outer.qvs": "<% Server.Execute \"inner.qvs\" %>",
        "sub/inner.qvs": "inner",
    }

    def test_folders_are_mapped_in_any_letter_case(self):
        data = self.server.root.parent / "Data"
        data.mkdir()
        for name in ("../data", "..\\\\DATA", "../Scripts/../dAta"):
            self.assertEqual(self.output("Response.Write Server.MapPath(\"%s\")" % name), str(data))
        self.assertEqual(
            self.output("Response.Write Server.MapPath(\"%s\")" % str(data).replace("Data", "DATA")),
            os.path.realpath(data))

    def test_a_page_within_a_page_is_found_from_there(self):
        self.assertEqual(self.output("Server.Execute \"sub/outer.qvs\""), "inner")

    def test_names_of_read_only_members_are_free(self):
        self.assertEqual(self.output("text = 1 : version = \"2\" : files = Array(3)\n"
                                     "Response.Write text & version & files(0)"), "123")
