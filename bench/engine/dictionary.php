<?php
$counts = [];
$n = 12345;
for ($i = 1; $i <= 1500000; $i++) {
  $n = ($n * 421 + 1663) % 7919;
  $key = "k" . $n;
  if (isset($counts[$key])) {
    $counts[$key] = $counts[$key] + 1;
  } else {
    $counts[$key] = 1;
  }
}
$total = 0;
$most = 0;
$mostKey = "";
foreach (array_keys($counts) as $key) {
  $total = $total + $counts[$key];
  if ($counts[$key] > $most) {
    $most = $counts[$key];
    $mostKey = $key;
  }
}
echo count($counts), " ", $total, " ", $most, " ", $mostKey, "\n";
