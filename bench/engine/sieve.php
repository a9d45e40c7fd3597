<?php
const LIMIT = 1000000;
$composite = [];
for ($round = 1; $round <= 3; $round++) {
  $count = 0;
  $sum = 0;
  for ($i = 0; $i <= LIMIT; $i++) {
    $composite[$i] = false;
  }
  $i = 2;
  while ($i <= LIMIT) {
    if (!$composite[$i]) {
      $count = $count + 1;
      $sum = ($sum + $i) % 1000003;
      $j = $i + $i;
      while ($j <= LIMIT) {
        $composite[$j] = true;
        $j = $j + $i;
      }
    }
    $i = $i + 1;
  }
}
echo $count, " ", $sum, "\n";
