"""Mail that pages send, to a server that listens."""

import email
import email.header
import email.policy
import time

from serving import Server, ServerTest, free_port
from smtp_receiver import SmtpReceiver

CDO = """
Set m = CreateObject("CDO.Message")
Sub Configure(name, value)
  m.Configuration.Fields("http://schemas.microsoft.com/cdo/configuration/" & name) = value
End Sub
m.From = "Me <me@here.example>": m.To = "you@there.example": m.Subject = "Subject": m.TextBody = "Text"
Configure "sendusing", 2: Configure "smtpserver", "127.0.0.1": Configure "smtpserverport", %d
On Error Resume Next
"""
TELL = "\nm.Send\nResponse.Write Err.Number & \" \" & Err.Description"


class Mail(ServerTest):
    def send(self, receiver, more=""):
        return self.output(CDO % receiver.port + more + TELL)

    def test_a_message_arrives(self):
        with SmtpReceiver() as receiver:
            more = ("m.CC = \"c@x.example\": m.BCC = \"b@x.example\"\n"
                    "m.TextBody = \".\" & vbCrLf & \"..\" & vbCrLf & String(3000, \"x\") & Chr(228)\n")
            self.assertEqual(self.send(receiver, more), "0 ")
        self.assertEqual(len(receiver.mails), 1)
        sender, recipients, data = receiver.mails[0]
        self.assertEqual(sender, "me@here.example")
        self.assertEqual(recipients, ["you@there.example", "c@x.example", "b@x.example"])
        self.assertNotIn(b"b@x.example", data)
        mail = email.message_from_bytes(data, policy=email.policy.default)
        self.assertEqual(mail["Subject"], "Subject")
        self.assertEqual(mail["From"], "Me <me@here.example>")
        self.assertEqual(mail.get_content(), ".\r\n..\r\n" + "x" * 3000 + "\xe4")
        self.assertLessEqual(max(map(len, data.split(b"\r\n"))), 998)

    def test_attachments_and_pictures(self):
        self.server.put("data.bin", bytes(range(256)) * 100)
        with SmtpReceiver() as receiver:
            path = str(self.server.root / "data.bin")
            self.assertEqual(self.send(receiver, "m.HTMLBody = \"<b>\" & Chr(228)\n"
                                                 "m.AddAttachment \"%s\"\n" % path), "0 ")
        mail = email.message_from_bytes(receiver.mails[0][2], policy=email.policy.default)
        self.assertEqual(mail.get_content_type(), "multipart/mixed")
        self.assertEqual(mail.get_body(("plain",)).get_content(), "Text")
        self.assertEqual(mail.get_body(("html",)).get_content(), "<b>\xe4")
        attachment, = mail.iter_attachments()
        self.assertEqual(attachment.get_filename(), "data.bin")
        self.assertEqual(attachment.get_content(), bytes(range(256)) * 100)

    def parsed(self, more):
        with SmtpReceiver() as receiver:
            self.assertEqual(self.send(receiver, more), "0 ")
        data = receiver.mails[0][2]
        head = data.partition(b"\r\n\r\n")[0]
        self.assertLessEqual(max(map(len, head.split(b"\r\n"))), 78)
        self.assertTrue(head.isascii())
        return email.message_from_bytes(data, policy=email.policy.default)

    def test_heads_in_any_language(self):
        cyrillic = " & ".join("ChrW(%d)" % ord(c) for c in "Привет ")
        mail = self.parsed(
            "Dim s, i: For i = 1 To 20\n"
            "s = s & %s & \"Gr\" & Chr(252) & Chr(223) & \"e \" & i & \" \": Next\n"
            "m.Subject = s: m.BodyPart.Charset = \"windows-1251\": m.TextBody = %s\n"
            "m.From = \"\"\"\" & %s & \", K\"\" <k@x.example>\"\n"
            "m.To = \"Doe, John <j@x.example>; =?utf-8?q?=C3=84?= <a@x.example>, (none)\"\n"
            % (cyrillic, cyrillic, cyrillic))
        self.assertEqual(mail["Subject"],
                         " ".join("Привет Grüße %d" % i for i in range(1, 21)))
        self.assertEqual(mail["From"].addresses[0].display_name, "Привет , K")
        self.assertEqual([(one.display_name, one.addr_spec) for one in mail["To"].addresses],
                         [("Doe, John", "j@x.example"), ("Ä", "a@x.example")])
        self.assertEqual(mail.get_content_charset(), "windows-1251")
        self.assertEqual(mail.get_content().rstrip("\r\n"), "Привет ")
        self.assertIsNotNone(mail["Date"].datetime)

    def test_subjects_that_pages_encode_themselves(self):
        mail = self.parsed("m.Subject = \"=?koi8-r?B?8NLJ18XU?= x =?utf-8?q?=0D=0AEvil:_1?=\"\n")
        self.assertEqual(mail["Subject"], "Привет x   Evil: 1")
        self.assertIsNone(mail["Evil"])

    def test_header_lines_that_pages_set(self):
        mail = self.parsed("With m.Fields: .Item(\"urn:schemas:mailheader:Subject\") = \"Other\"\n"
                           ".Item(\"urn:schemas:mailheader:Content-Type\") = \"text/html\"\n"
                           ".Item(\"urn:schemas:mailheader:Bcc\") = \"secret@x.example\"\n"
                           ".Item(\"urn:schemas:mailheader:Disposition-Notification-To\") = "
                           "\"\"\"\" & Chr(228) & \"\"\" <me@here.example>\"\n"
                           ".Item(\"urn:schemas:mailheader:X-Mailer\") = Replace(Space(150), \" \", \"x \"): End With\n")
        self.assertEqual(mail.get_all("Subject"), ["Other"])
        self.assertEqual(mail.get_content_type(), "text/plain")
        self.assertIsNone(mail["Bcc"])
        self.assertEqual(str(email.header.make_header(email.header.decode_header(
            mail["Disposition-Notification-To"]))), "ä <me@here.example>")

    def test_parts_inside_parts(self):
        for name in ("p.gif", "two words, one comma.pdf", "%s.txt" % ("long" * 40)):
            self.server.put(name, name.encode() * 100)
        root = str(self.server.root)
        mail = self.parsed(
            "m.HTMLBody = \"<img src=cid:one>\" & vbLf & String(5000, Chr(228)) & \" \"\n"
            "m.AddRelatedBodyPart \"%s/p.gif\", \"one\", 1\n"
            "m.AddAttachment \"%s/two words, one comma.pdf\"\n"
            "m.AddAttachment \"%s/%s.txt\"\n" % (root, root, root, "long" * 40))
        self.assertEqual([part.get_content_type() for part in mail.walk()], [
            "multipart/mixed", "multipart/alternative", "text/plain", "multipart/related", "text/html",
            "image/gif", "application/pdf", "text/plain"])
        self.assertEqual([defect for part in mail.walk() for defect in part.defects], [])
        self.assertEqual(mail.get_body(("html",)).get_content(),
                         "<img src=cid:one>\r\n" + "\xe4" * 5000 + " ")
        picture = next(part for part in mail.walk() if part.get_content_type() == "image/gif")
        self.assertEqual((picture["Content-ID"], picture.get_content_disposition()), ("<one>", "inline"))
        first, second = mail.iter_attachments()
        self.assertEqual(first.get_filename(), "two words, one comma.pdf")
        self.assertEqual(first.get_content(), first.get_filename().encode() * 100)
        self.assertEqual(second.get_filename(), "long" * 40 + ".txt")

    def test_login(self):
        with SmtpReceiver(login=("me", "word")) as receiver:
            login = ("Configure \"smtpauthenticate\", 1: Configure \"sendusername\", \"me\"\n"
                     "Configure \"sendpassword\", \"%s\"\n")
            self.assertEqual(self.send(receiver, login % "word"), "0 ")
            self.assertTrue(self.send(receiver, login % "wrong").startswith("-2147220969 "))
            self.assertTrue(self.send(receiver).startswith("-2147220978 "))
        self.assertEqual(len(receiver.mails), 1)

    def test_what_the_server_refuses(self):
        with SmtpReceiver() as receiver:
            self.assertEqual(
                self.send(receiver, "m.To = \"nobody@x.example\"\n"),
                "-2147220977 The server rejected one or more recipient addresses. "
                "The server response was: 550 nobody here")
            self.assertEqual(
                self.send(receiver, "m.From = \"bad@x.example\"\n"),
                "-2147220978 The server rejected the sender address. "
                "The server response was: 553 not from you")
        self.assertEqual(receiver.mails, [])

    def test_no_server(self):
        self.assertEqual(self.output(CDO % free_port() + TELL),
                         "-2147220973 The transport failed to connect to the server.")
        self.assertEqual(self.output(CDO % 1 + "Configure \"smtpserver\", \"\"\n" + TELL),
                         "-2147220960 The \"SendUsing\" configuration value is invalid.")
        for host in ["x y", "a/b", "127.0.0.1\" & vbCrLf & \"QUIT", "user@127.0.0.1"]:
            self.assertTrue(self.output(CDO % 1 + "Configure \"smtpserver\", \"%s\"\n" % host + TELL)
                            .startswith("-2147220973 "))

    def test_a_server_that_says_nothing_ends_with_the_page_s_time(self):
        with SmtpReceiver(silent=True) as receiver:
            start = time.monotonic()
            answer = self.output("Server.ScriptTimeout = 1\n" + CDO % receiver.port + TELL)
            self.assertIn("Error #113", answer)
            self.assertLess(time.monotonic() - start, 5)

    def test_forms_that_name_the_server_in_one_text(self):
        with SmtpReceiver() as receiver:
            self.assertEqual(self.output(
                "Set m = CreateObject(\"JMail.Message\"): m.Silent = True\n"
                "m.From = \"a@x\": m.AddRecipient \"b@x\": m.Body = \"t\"\n"
                "Response.Write m.Send(\"127.0.0.1:%d\") & m.Send(\"127.0.0.1:%d\") & m.ErrorCode"
                % (receiver.port, free_port())), "TrueFalse-2147220973")
            self.assertEqual(self.output(
                "Set m = CreateObject(\"SMTPsvg.Mailer\"): m.RemoteHost = \"127.0.0.1:%d;127.0.0.1:%d\"\n"
                "m.FromAddress = \"a@x\": m.AddRecipient \"B\", \"b@x\": m.BodyText = \"t\"\n"
                "Response.Write m.SendMail" % (free_port(), receiver.port)), "True")
            self.assertEqual(self.output(
                "Set m = CreateObject(\"Persits.MailSender\"): m.Host = \"127.0.0.1\": m.Port = %d\n"
                "m.From = \"a@x\": m.AddAddress \"b@x\": m.Body = \"t\"\n"
                "Response.Write m.Send" % receiver.port), "True")
        self.assertEqual(len(receiver.mails), 3)


class Settings(ServerTest):
    def test_the_server_of_the_settings(self):
        with SmtpReceiver() as receiver, Server(
                {"page.qvs": "<% CreateObject(\"CDONTS.NewMail\").Send \"a@x\", \"b@x\", \"S\", \"T\" %>ok"},
                {"MailServer": "127.0.0.1:%d" % receiver.port}) as server:
            self.assertEqual(server.get("/page.qvs").text, "ok")
        self.assertEqual(receiver.mails[0][:2], ("a@x", ["b@x"]))

    def test_a_folder_takes_what_would_be_sent(self):
        with Server({"page.qvs": "<% CreateObject(\"CDONTS.NewMail\").Send \"a@x\", \"b@x\", \"S\", \"T\" %>ok"},
                    {"MailFolder": "Mail", "MailServer": "127.0.0.1:1"}) as server:
            self.assertEqual(server.get("/page.qvs").text, "ok")
            file, = (server.folder / "main/Mail").glob("*.eml")
            self.assertIn(b"\r\nSubject: S\r\n", file.read_bytes())
