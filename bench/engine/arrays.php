<?php
const SIZE = 200;

function filled($seed) {
  $m = [];
  for ($i = 0; $i < SIZE; $i++) {
    $row = [];
    for ($j = 0; $j < SIZE; $j++) {
      $row[$j] = ($i * $seed + $j) % 10;
    }
    $m[$i] = $row;
  }
  return $m;
}

function product($a, $b) {
  $c = [];
  for ($i = 0; $i < SIZE; $i++) {
    $row = [];
    for ($j = 0; $j < SIZE; $j++) {
      $sum = 0;
      for ($k = 0; $k < SIZE; $k++) {
        $sum = $sum + $a[$i][$k] * $b[$k][$j];
      }
      $row[$j] = $sum;
    }
    $c[$i] = $row;
  }
  return $c;
}

function primes($limit) {
  $composite = array_fill(0, $limit + 1, false);
  $count = 0;
  for ($i = 2; $i <= $limit; $i++) {
    if (!$composite[$i]) {
      $count = $count + 1;
      for ($j = $i + $i; $j <= $limit; $j += $i) {
        $composite[$j] = true;
      }
    }
  }
  return $count;
}

$c = product(filled(3), filled(7));
echo $c[0][0], " ", $c[SIZE - 1][SIZE - 1], " ", $c[17][42], "\n";
echo primes(2000000), "\n";
