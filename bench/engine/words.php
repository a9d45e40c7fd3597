<?php
$vocabulary = ["alder", "birch", "cedar", "dogwood", "elm", "fir", "gorse", "hazel", "ivy", "juniper"];

function word($n) {
  global $vocabulary;
  return $vocabulary[$n % 10] . $n;
}

$words = [];
$n = 7;
for ($i = 0; $i <= 19999; $i++) {
  $n = ($n * 421 + 1663) % 7919;
  $words[$i] = word($n % 3001);
}
$counts = [];
$places = [];
for ($round = 1; $round <= 60; $round++) {
  foreach ($words as $w) {
    $counts[$w] = ($counts[$w] ?? 0) + 1;
  }
  for ($i = 0; $i < count($words); $i++) {
    if (!isset($places[$words[$i]])) {
      $places[$words[$i]] = $i;
    }
  }
}
$total = 0;
$longest = "";
foreach (array_keys($counts) as $w) {
  $total = $total + $counts[$w] * strlen($w) + $places[$w] % 7;
  if (strlen($w) > strlen($longest)) {
    $longest = $w;
  }
}
echo count($counts), " ", count($places), " ", $total, " ", $longest, "\n";
