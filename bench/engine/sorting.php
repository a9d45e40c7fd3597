<?php
function quickSort(&$a, $low, $high) {
  $i = $low;
  $j = $high;
  $pivot = $a[intdiv($low + $high, 2)];
  while ($i <= $j) {
    while ($a[$i] < $pivot) {
      $i = $i + 1;
    }
    while ($a[$j] > $pivot) {
      $j = $j - 1;
    }
    if ($i <= $j) {
      $swap = $a[$i];
      $a[$i] = $a[$j];
      $a[$j] = $swap;
      $i = $i + 1;
      $j = $j - 1;
    }
  }
  if ($low < $j) {
    quickSort($a, $low, $j);
  }
  if ($i < $high) {
    quickSort($a, $i, $high);
  }
}

function bubbleSort(&$a) {
  for ($i = count($a) - 1; $i >= 1; $i--) {
    for ($j = 0; $j < $i; $j++) {
      if ($a[$j] > $a[$j + 1]) {
        $swap = $a[$j];
        $a[$j] = $a[$j + 1];
        $a[$j + 1] = $swap;
      }
    }
  }
}

function numbers($count) {
  $a = [];
  $n = 42;
  for ($i = 0; $i < $count; $i++) {
    $n = ($n * 16807 + 17) % 100003;
    $a[$i] = $n;
  }
  return $a;
}

$big = numbers(400000);
quickSort($big, 0, count($big) - 1);
$small = numbers(1500);
bubbleSort($small);
echo $big[0], " ", $big[200000], " ", $big[399999], "\n";
echo $small[0], " ", $small[750], " ", $small[1499], "\n";
