#ifndef RING_BUFFER_H
#define RING_BUFFER_H

template<class T,int capacity>
class RingBuffer{
public:
	RingBuffer();
	~RingBuffer(){}
	bool empty() const {return count==0;}
	bool full() const{ return count==capacity; }
    int size( ) const {return count;}
	void push( const T& item );
	T pop();
	T* data(){return items;}
protected:
    T items[capacity];
    int first;
    int count;
};

template<class T,int capacity>RingBuffer<T,capacity>::RingBuffer():first(0),count(0){
}

template<class T,int capacity>
void RingBuffer<T,capacity>::push(const T& item){
    if(full()) throw std::length_error("ring buffer");
    items[ (first+count)%capacity ]=item;
  ++count;
}

template<class T,int capacity>
T RingBuffer<T,capacity>::pop(){
    // The oldest item goes first.
        T item=items[first];
        first=(first+1)%capacity;
      --count;
        return item;
}

typedef RingBuffer<char,256>ByteBuffer;
typedef RingBuffer< RingBuffer<int,4>,16 >Frames;

#endif
