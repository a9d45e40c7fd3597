<?php
class Body {
  public $x, $y, $z, $vx, $vy, $vz, $mass;
}

$bodies = [];

function place($i, $x, $y, $z, $vx, $vy, $vz, $mass) {
  global $bodies;
  $bodies[$i] = new Body;
  $bodies[$i]->x = $x;
  $bodies[$i]->y = $y;
  $bodies[$i]->z = $z;
  $bodies[$i]->vx = $vx;
  $bodies[$i]->vy = $vy;
  $bodies[$i]->vz = $vz;
  $bodies[$i]->mass = $mass;
}

function advance($dt) {
  global $bodies;
  for ($i = 0; $i <= 4; $i++) {
    for ($j = $i + 1; $j <= 4; $j++) {
      $dx = $bodies[$i]->x - $bodies[$j]->x;
      $dy = $bodies[$i]->y - $bodies[$j]->y;
      $dz = $bodies[$i]->z - $bodies[$j]->z;
      $d2 = $dx * $dx + $dy * $dy + $dz * $dz;
      $mag = $dt / ($d2 * sqrt($d2));
      $bodies[$i]->vx = $bodies[$i]->vx - $dx * $bodies[$j]->mass * $mag;
      $bodies[$i]->vy = $bodies[$i]->vy - $dy * $bodies[$j]->mass * $mag;
      $bodies[$i]->vz = $bodies[$i]->vz - $dz * $bodies[$j]->mass * $mag;
      $bodies[$j]->vx = $bodies[$j]->vx + $dx * $bodies[$i]->mass * $mag;
      $bodies[$j]->vy = $bodies[$j]->vy + $dy * $bodies[$i]->mass * $mag;
      $bodies[$j]->vz = $bodies[$j]->vz + $dz * $bodies[$i]->mass * $mag;
    }
  }
  for ($i = 0; $i <= 4; $i++) {
    $bodies[$i]->x = $bodies[$i]->x + $dt * $bodies[$i]->vx;
    $bodies[$i]->y = $bodies[$i]->y + $dt * $bodies[$i]->vy;
    $bodies[$i]->z = $bodies[$i]->z + $dt * $bodies[$i]->vz;
  }
}

function energy() {
  global $bodies;
  $e = 0.0;
  for ($i = 0; $i <= 4; $i++) {
    $e = $e + 0.5 * $bodies[$i]->mass * ($bodies[$i]->vx * $bodies[$i]->vx + $bodies[$i]->vy * $bodies[$i]->vy + $bodies[$i]->vz * $bodies[$i]->vz);
  }
  return $e;
}

place(0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 39.5);
place(1, 4.84, -1.16, -0.1, 0.6, 2.8, -0.02, 0.0377);
place(2, 8.34, 4.12, -0.4, -1.01, 1.8, 0.008, 0.0113);
place(3, 12.9, -15.1, -0.22, 1.08, 0.87, -0.01, 0.0017);
place(4, 15.4, -25.9, 0.18, 0.98, 0.6, -0.035, 0.002);
for ($n = 1; $n <= 100000; $n++) {
  advance(0.01);
}
printf("%.6f\n", energy());
