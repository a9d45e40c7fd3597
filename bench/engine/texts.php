<?php
function row($i) {
  return "  Name " . $i . ", Street " . ($i % 90) . ", City of " . strtoupper("towns") . "  ";
}

function initials($text) {
  $s = "";
  foreach (explode(" ", $text) as $part) {
    if (strlen($part) > 0) {
      $s .= strtoupper(substr($part, 0, 1));
    }
  }
  return $s;
}

function vowels($text) {
  $count = 0;
  $length = strlen($text);
  for ($i = 0; $i < $length; $i++) {
    switch (substr($text, $i, 1)) {
      case "a":
      case "e":
      case "i":
      case "o":
      case "u":
        $count = $count + 1;
    }
  }
  return $count;
}

$page = "";
$vowelCount = 0;
$marks = "";
$found = 0;
for ($i = 1; $i <= 120000; $i++) {
  $text = trim(row($i), " ");
  $page .= $text . "\n";
  if (strpos($text, "Street 77") !== false) {
    $found = $found + 1;
  }
  if ($i % 3 == 0) {
    $vowelCount = $vowelCount + vowels($text);
  }
  if ($i % 4 == 0) {
    $marks = initials($text);
  }
  if (strtolower(substr($text, -5)) == "towns") {
    $found = $found + strlen(str_replace(", ", ",", $text));
  }
}
echo strlen($page), " ", $vowelCount, " ", $marks, " ", $found, " ", substr($page, 100000, 20), "\n";
