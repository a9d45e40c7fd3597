<?php
function escaped($text) {
  $s = str_replace("&", "&amp;", $text);
  $s = str_replace("<", "&lt;", $s);
  $s = str_replace(">", "&gt;", $s);
  return $s;
}

function price($cents) {
  return intdiv($cents, 100) . "." . substr("0" . $cents % 100, -2);
}

ob_start(null, 65536);
echo "<html><body><table>" . "\n";
for ($i = 1; $i <= 200000; $i++) {
  if ($i % 2 == 0) {
    $style = "even";
  } else {
    $style = "odd";
  }
  echo "<tr class=\"" . $style . "\">" . "\n";
  echo "<td>" . $i . "</td>";
  echo "<td>" . escaped("A & B <" . $i % 100 . ">") . "</td>";
  echo "<td>" . price($i * 7) . "</td>" . "\n";
  echo "</tr>" . "\n";
}
echo "</table></body></html>" . "\n";
