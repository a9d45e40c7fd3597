<?php
class Body {
  public $x, $y, $z, $vx, $vy, $vz, $mass;
}

function newBody($x, $y, $z, $vx, $vy, $vz, $mass) {
  $b = new Body;
  $b->x = $x;
  $b->y = $y;
  $b->z = $z;
  $b->vx = $vx;
  $b->vy = $vy;
  $b->vz = $vz;
  $b->mass = $mass;
  return $b;
}

function advance($bodies, $dt) {
  $count = count($bodies);
  for ($i = 0; $i < $count; $i++) {
    $a = $bodies[$i];
    for ($j = $i + 1; $j < $count; $j++) {
      $b = $bodies[$j];
      $dx = $a->x - $b->x;
      $dy = $a->y - $b->y;
      $dz = $a->z - $b->z;
      $d2 = $dx * $dx + $dy * $dy + $dz * $dz;
      $mag = $dt / ($d2 * sqrt($d2));
      $a->vx = $a->vx - $dx * $b->mass * $mag;
      $a->vy = $a->vy - $dy * $b->mass * $mag;
      $a->vz = $a->vz - $dz * $b->mass * $mag;
      $b->vx = $b->vx + $dx * $a->mass * $mag;
      $b->vy = $b->vy + $dy * $a->mass * $mag;
      $b->vz = $b->vz + $dz * $a->mass * $mag;
    }
  }
  for ($i = 0; $i < $count; $i++) {
    $a = $bodies[$i];
    $a->x = $a->x + $dt * $a->vx;
    $a->y = $a->y + $dt * $a->vy;
    $a->z = $a->z + $dt * $a->vz;
  }
}

function energy($bodies) {
  $e = 0.0;
  foreach ($bodies as $a) {
    $e = $e + 0.5 * $a->mass * ($a->vx * $a->vx + $a->vy * $a->vy + $a->vz * $a->vz);
  }
  return $e;
}

$bodies = [
  newBody(0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 39.5),
  newBody(4.84, -1.16, -0.1, 0.6, 2.8, -0.02, 0.0377),
  newBody(8.34, 4.12, -0.4, -1.01, 1.8, 0.008, 0.0113),
  newBody(12.9, -15.1, -0.22, 1.08, 0.87, -0.01, 0.0017),
  newBody(15.4, -25.9, 0.18, 0.98, 0.6, -0.035, 0.002),
];
for ($n = 1; $n <= 120000; $n++) {
  advance($bodies, 0.01);
}
printf("%.6f\n", energy($bodies));
