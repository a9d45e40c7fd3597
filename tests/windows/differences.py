"""What of the black-box tests comes out otherwise on this system, and why. "file.Class.test", stars
allowed."""

_JET = "files of Access are read by the system's own drivers, not by a program of ours"
_SOCKET_FILES = "servers of this system listen at networks only"
_MODULE = "what works on pictures is the system's, not a file beside the program"

DIFFERENCES = {
    "test_jet_import.Content.test_a*": _JET,
    "test_jet_import.Content.test_code_pages": _JET,
    "test_jet_import.Content.test_indexes": _JET,
    "test_jet_import.Content.test_keys_go_on": _JET,
    "test_jet_import.Content.test_linked_tables_are_told": _JET,
    "test_jet_import.Content.test_s*": _JET,
    "test_jet_import.Content.test_v*": _JET,
    "test_jet_import.Copies.*": _JET,
    "test_jet_import.Damage.*": _JET,
    "test_jet_import.Pages.*": _JET,
    "test_listen.Listening.test_a_file_goes_with_the_server_and_what_a_dead_one_left_is_replaced":
        _SOCKET_FILES,
    "test_listen.Listening.test_in_several_places_at_once": _SOCKET_FILES,
    "test_listen.Listening.test_what_is_no_socket_stays_and_is_told": _SOCKET_FILES,
    "test_pictures.WithoutTheModule.*": _MODULE,
    "test_qvscript.QvScript.test_check_of_a_long_list_on_a_terminal":
        "a console of this system is drawn by the system",
    "test_large_and_packed.Copies.test_a_full_disk_leaves_no_half_copy":
        "the disk is made small by a limit that Wine's own files meet as well",
    "test_http_client.HttpClient.test_documents":
        "documents in character sets of regions are read by the system's own objects",
    "test_system_files.LargeFiles.test_many_readers_of_a_large_file_cost_little_memory":
        "Wine keeps 64 KB for each stretch of a file that it has sent",
    "test_system_files.Idlers.test_one_that_takes_little_by_little_gets_everything":
        "how far it has come with a stretch of a file the system does not tell",
    "test_customary_pages.CharacterSets.test_escapes_choose_the_letters":
        "Wine's code page 50220 writes bytes of another one",
}

_LINKS = "the compiler's library makes no links here"
_OPEN_FILE = "a file that is open can be neither removed nor replaced"
_ESCAPES = "Wine does not know these code pages"

# Of the tests that are programs; all that fail.
UNITS = {
    "components": {
        "PoolOfFiles.AFileThatIsGoneOrAnotherIsNotServed": _OPEN_FILE,
        "PoolOfFiles.AnotherOpeningLeavesTheLocksOfAFile":
            "locks are those of an opening, and the test asks another program of another system",
        "PoolOfFiles.NoJournalStaysBesideAFileThatIsGone": _OPEN_FILE,
        "PoolOfFiles.TheJournalOfAnotherFileStays": _OPEN_FILE,
    },
    "console": {},
    "console_terminal": {},
    "http": {},
    "language": {
        "Files/Language.BehavesAsWritten/components_picture_quality":
            "Wine's codecs know one quality",
        "Files/Language.BehavesAsWritten/components_xml_encodings":
            "documents in character sets of regions are read by the system's own objects",
    },
    "members": {},
    "platform": {
        "FilesContract/Host.LinksThatLeadOutOfAFolderAreKnown": _LINKS,
        "Listen.APlaceThatIsTakenSaysSo": "Wine has no words for that error",
        "Tcp.AbortDropsWhatIsQueued": "Wine tells a client that reads of no reset, but of an end",
        "Tcp.WhatTheClientHasNotConfirmedIsTold": "the system does not tell",
        "Udp.TheReplyComesFromTheAddressThatWasAsked": "Wine answers from the usual address",
    },
    "platform_pictures": {},
    "platform_windows": {},
    "proxies": {},
    "script": {
        "CodePage.AnAccentIsOneWithItsLetter": "accents stay apart",
        "CodePage.BothWaysWithEscapes": _ESCAPES,
        "CodePage.BrokenEscapesEndNothing": _ESCAPES,
        "CodePage.KnownWithEscapesOrFourBytes": _ESCAPES,
    },
    "startup": {},
    "support": {},
    "tools": {"ModuleToolTest.NothingIsUnpackedThroughLinks": _LINKS},
    "vbscript_library": {},
    "vbscript_machine": {},
    "vbscript_syntax": {},
    "vbscript_values": {},
}
