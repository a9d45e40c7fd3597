"""Mail that pages send, to a server that listens."""

import email
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
