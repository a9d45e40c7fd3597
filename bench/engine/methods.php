<?php
class Account {
  private $balance = 0;
  private $count = 0;

  public function balance() {
    return $this->balance;
  }

  public function setBalance($value) {
    $this->balance = $value;
  }

  public function deposit($amount) {
    $this->balance = $this->balance + $amount;
    $this->note();
  }

  public function canPay($amount) {
    return $this->balance >= $amount;
  }

  public function count() {
    return $this->count;
  }

  private function note() {
    $this->count = $this->count + 1;
  }
}

function transfer($from, $into, $amount) {
  if ($from->canPay($amount)) {
    $from->setBalance($from->balance() - $amount);
    $into->deposit($amount);
  }
}

$a = new Account;
$b = new Account;
$a->deposit(1000);
for ($i = 1; $i <= 700000; $i++) {
  transfer($a, $b, $i % 10);
  transfer($b, $a, $i % 7);
}
echo $a->balance(), " ", $b->balance(), " ", $a->count() + $b->count(), "\n";
