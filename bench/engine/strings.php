<?php
function built($count) {
  $s = "";
  for ($i = 1; $i <= $count; $i++) {
    $s .= "item " . $i . ";";
  }
  return $s;
}

function reversed($text) {
  $s = "";
  for ($i = strlen($text) - 1; $i >= 0; $i--) {
    $s .= substr($text, $i, 1);
  }
  return $s;
}

function countWords($text) {
  $at = 0;
  $count = 0;
  while (true) {
    $at = strpos($text, "item", $at);
    if ($at === false) {
      break;
    }
    $count = $count + 1;
    $at = $at + 4;
  }
  return $count;
}

function checkSum($text) {
  $sum = 0;
  $length = strlen($text);
  for ($i = 0; $i < $length; $i++) {
    $sum = ($sum * 31 + ord(substr($text, $i, 1))) % 65521;
  }
  return $sum;
}

$text = built(200000);
$back = reversed($text);
$parts = explode(";", $text);
echo strlen($text), " ", substr($back, 0, 12), "\n";
echo countWords($text), " ", checkSum($text), "\n";
echo count($parts) - 1, " ", strlen(implode("--", $parts)), " ",
  strlen(str_replace("item", "thing", $text)), "\n";
