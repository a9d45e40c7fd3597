<?php
function tak($x, $y, $z) {
  if ($y >= $x) {
    return $z;
  } else {
    return tak(tak($x - 1, $y, $z), tak($y - 1, $z, $x), tak($z - 1, $x, $y));
  }
}

function ackermann($m, $n) {
  if ($m == 0) {
    return $n + 1;
  } elseif ($n == 0) {
    return ackermann($m - 1, 1);
  } else {
    return ackermann($m - 1, ackermann($m, $n - 1));
  }
}

$towers = [0, 0, 0];
function move($height, $from, $into, $spare) {
  global $towers;
  if ($height == 0) {
    return;
  }
  move($height - 1, $from, $spare, $into);
  $towers[$into] = $towers[$into] + 1;
  move($height - 1, $spare, $into, $from);
}

move(18, 0, 1, 2);
echo tak(24, 16, 8), " ", ackermann(2, 1000), " ", $towers[0], " ", $towers[1], " ", $towers[2], "\n";
