<?php
function fib($n) {
  if ($n < 2) {
    return $n;
  } else {
    return fib($n - 1) + fib($n - 2);
  }
}

echo fib(31), "\n";
