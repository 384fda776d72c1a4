Queue::Queue(int qs) : qsize(qs)
{
front = rear = NULL;
items = 0;
}

namespace MyNS {
Cls::Cls(char* p1, int p2) : m_P1(p1),m_P2(p2){
++m_Count;}
}

Employee::Employee(const Firm & f) : m_Firm(f)
{

}