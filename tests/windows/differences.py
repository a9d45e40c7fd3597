"""What of the black-box tests comes out otherwise on this system, and why. "file.Class.test", stars
allowed."""

DIFFERENCES = {
    "test_pictures.WithoutTheModule.*": "what works on pictures is a part of the system",
}
